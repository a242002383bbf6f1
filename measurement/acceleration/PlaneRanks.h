#pragma once

#include <measurement/geometry/detail/VectorMath.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tesk::measurement::acceleration {

/// Parallel planes, numbered from the lowest: those from `first` to before `last`.
struct PlaneRange {
    std::size_t first;
    std::size_t last;

    bool isEmpty() const { return first >= last; }
};

/// Which of many parallel planes have corners of a triangle on both sides.
///
/// A point's signed distance to a plane is normal * point + offset, the last a sum of two rounded numbers. The sign of
/// such a sum is exact, so the point is below the plane exactly where normal * point, its height, is less than -offset,
/// whatever the numbers; NaN in either is never below. The height is the same for all planes. So the planes that a
/// point is below are the upper ones from some number on, its rank, and a triangle has corners on both sides of those
/// from its corners' lowest rank to their highest.
///
/// Points belong to the caller and must stay as long as the ranks are asked for.
class PlaneRanks {
public:
    /// Ranks are 16-bit numbers.
    static constexpr std::size_t maximumPlaneCount = 4096;

    /// At most so many planes, and at least one, from the lowest: in descending order of their offsets, where NaN
    /// counts as infinity. Points are those that triangles have by number. The ranks of all are found in advance, in
    /// time and 2 bytes for each, where so many corners, more or less, make that worth while.
    void assign(const osg::Vec3f& planeNormal, const std::vector<float>& planeOffsets, const osg::Pnt3f* allPoints,
                std::size_t pointCount, std::uint64_t cornerCount);

    /// For the numbers of three points.
    PlaneRange planesThrough(std::uint32_t i0, std::uint32_t i1, std::uint32_t i2) const {
        return ranks.empty() ? calcPlanesThrough(i0, i1, i2) : between(ranks[i0], ranks[i1], ranks[i2]);
    }

private:
    static PlaneRange between(std::uint16_t rank0, std::uint16_t rank1, std::uint16_t rank2) {
        return {std::min(std::min(rank0, rank1), rank2), std::max(std::max(rank0, rank1), rank2)};
    }
    PlaneRange calcPlanesThrough(std::uint32_t i0, std::uint32_t i1, std::uint32_t i2) const;
    std::uint16_t calcRank(const osg::Pnt3f& point) const;
    std::uint16_t searchRank(float height) const;
    void fillRanks(std::size_t pointCount);

    osg::Vec3f normal;
    /// Minus infinity, the planes' heights, infinity.
    std::vector<float> heights;
    std::size_t planeCount = 0;
    /// Planes per unit of height, were they evenly spaced.
    float density = 0.0f;
    const osg::Pnt3f* points = nullptr;
    /// Of all points, or empty.
    std::vector<std::uint16_t> ranks;
};

} // namespace tesk::measurement::acceleration
