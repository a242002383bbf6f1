#include <measurement/acceleration/PlaneRanks.h>

#include <measurement/acceleration/Workers.h>

#include <limits>

namespace tesk::measurement::acceleration {

namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();

constexpr std::size_t pointsWorthAThread = 1 << 17;

} // namespace

void PlaneRanks::assign(const osg::Vec3f& planeNormal, const std::vector<float>& planeOffsets,
                        const osg::Pnt3f* allPoints, std::size_t pointCount, std::uint64_t cornerCount) {
    normal = planeNormal;
    points = allPoints;
    planeCount = planeOffsets.size();
    heights.assign(1, -infinity);
    // Nothing is below a plane whose offset is NaN, as if it were infinitely low.
    for (const float offset : planeOffsets) heights.push_back(offset == offset ? -offset : -infinity);
    density = static_cast<float>(planeCount - 1) / (heights.back() - heights[1]);
    heights.push_back(infinity);
    fillRanks(cornerCount < pointCount ? 0 : pointCount);
}

inline std::uint16_t PlaneRanks::calcRank(const osg::Pnt3f& point) const {
    const float height = detail::dot(normal, osg::Vec3f(point));
    // Right for planes that are evenly spaced but for rounding. Zero for NaN.
    const float below = (height - heights[1]) * density + 1.0f;
    const auto largest = static_cast<float>(planeCount);
    const auto guess = static_cast<std::uint32_t>(below > 0.0f ? std::min(below, largest) : 0.0f);
    if (!(height < heights[guess]) && height < heights[guess + 1]) return static_cast<std::uint16_t>(guess);
    return searchRank(height);
}

std::uint16_t PlaneRanks::searchRank(float height) const {
    const auto lowest = heights.begin() + 1, end = heights.end() - 1;
    const auto isNotBelow = [height](float planeHeight) { return !(height < planeHeight); };
    return static_cast<std::uint16_t>(std::partition_point(lowest, end, isNotBelow) - lowest);
}

PlaneRange PlaneRanks::calcPlanesThrough(std::uint32_t i0, std::uint32_t i1, std::uint32_t i2) const {
    return between(calcRank(points[i0]), calcRank(points[i1]), calcRank(points[i2]));
}

void PlaneRanks::fillRanks(std::size_t pointCount) {
    ranks.resize(pointCount);
    runInChunks(pointCount, pointsWorthAThread, [this](std::size_t, std::size_t begin, std::size_t end) {
        if (planeCount == 1) {
            const float height = heights[1];
            for (std::size_t i = begin; i < end; ++i) ranks[i] = !(detail::dot(normal, osg::Vec3f(points[i])) < height);
        } else {
            for (std::size_t i = begin; i < end; ++i) ranks[i] = calcRank(points[i]);
        }
    });
}

} // namespace tesk::measurement::acceleration
