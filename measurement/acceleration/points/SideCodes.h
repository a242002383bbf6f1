#pragma once

#include <OpenSG/OSGVector.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tesk::measurement::acceleration {

/// Beyond which sides of a cube around a point positions lie: one bit for each side, as for clipping lines (Newman and
/// Sproull, Principles of Interactive Computer Graphics, 1973, who name Cohen and Sutherland).
///
/// A primitive whose corners all lie beyond the same side is no nearer to the point than half the cube's edge. That is
/// chosen such that the primitive's box would then have a lowerBound(), as PointDistanceFilter.h says, above the best
/// squared distance. To this end a position counts only up to some distance; those that are farther off, infinite or
/// not a number are beyond no side.
class SideCodes {
public:
    /// For points that are not much farther away than `count` positions from each other. None for no positions, or
    /// where none would tell: the best is too large or the positions are too far off, so that rounding hides it.
    SideCodes(const osg::Pnt3f* positions, std::size_t count, const osg::Pnt3f& point, float best);

    bool areThere() const { return !codes.empty(); }
    /// Stores the numbers of those primitives, from one to before another, that may be near; returns how many. There
    /// must be room for all.
    template <std::size_t cornerCount>
    std::size_t findNear(const std::uint32_t* corners, std::size_t begin, std::size_t end, std::uint32_t* near) const {
        const std::uint8_t* const code = codes.data();
        std::size_t count = 0;
        for (std::size_t i = begin; i < end; ++i) {
            const std::uint32_t* const numbers = corners + cornerCount * i;
            unsigned common = code[numbers[0]];
            for (std::size_t which = 1; which < cornerCount; ++which) common &= code[numbers[which]];
            near[count] = static_cast<std::uint32_t>(i);
            count += common == 0;
        }
        return count;
    }

private:
    std::vector<std::uint8_t> codes;
};

} // namespace tesk::measurement::acceleration
