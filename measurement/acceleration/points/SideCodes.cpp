#include <measurement/acceleration/points/SideCodes.h>

#include <measurement/acceleration/Workers.h>
#include <measurement/acceleration/points/PointDistanceFilter.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace tesk::measurement::acceleration {

namespace {

constexpr std::size_t positionsWorthAThread = 1 << 18;
constexpr std::size_t sampledPositions = 64;

/// A cube around a point, and a greater one.
struct Cubes {
    Quad point;
    float inner, outer;

    unsigned codeOf(const Quad& position) const {
        const Quad offset = position - point;
        const QuadMask isNear = absolute(offset) <= Quad{} + outer;
        const QuadMask isAbove = isNear & (offset > Quad{} + inner), isBelow = isNear & (-offset > Quad{} + inner);
        return toBits(isNear) == 7 ? toBits(isAbove) | toBits(isBelow) << 3 : 0;
    }
};

Quad read(const osg::Pnt3f& position) { return Quad{position[0], position[1], position[2]}; }

/// Twice as far in one coordinate as some of the positions are.
float farthestOfSome(const osg::Pnt3f* positions, std::size_t count, const Quad& point) {
    float farthest = 0.0f;
    for (std::size_t i = 0; i < count; i += 1 + count / sampledPositions) {
        const Quad offset = absolute(read(positions[i]) - point);
        for (int axis = 0; axis < 3; ++axis) farthest = std::max(farthest, offset[axis]);
    }
    return 2.0f * farthest;
}

/// How far a box must be in one coordinate that reaches so far at most, for its lowerBound() to be above the best;
/// infinite where that is not certain.
float gapFor(float best, float reach) {
    // By the operations of lowerBound(). None of them gives less for a greater gap or more for a shorter reach.
    const float margin = 16.0f * (reach * reach + reach * reach + reach * reach) * boundMargin + smallestMargin;
    const float gap = std::sqrt(best + margin) * 1.00001f;
    return gap * gap - margin > best ? gap : std::numeric_limits<float>::infinity();
}

} // namespace

SideCodes::SideCodes(const osg::Pnt3f* positions, std::size_t count, const osg::Pnt3f& point, float best) {
    if (count == 0) return;
    Cubes cubes{read(point), 0.0f, farthestOfSome(positions, count, read(point))};
    cubes.inner = gapFor(best, cubes.outer);
    if (!(cubes.inner < 0.5f * cubes.outer)) return;
    codes.resize(count);
    runInChunks(count, positionsWorthAThread, [&](std::size_t, std::size_t begin, std::size_t end) {
        // The next position is read along with each.
        const std::size_t last = std::min(end, count - 1);
        for (std::size_t i = begin; i < last; ++i)
            codes[i] = static_cast<std::uint8_t>(cubes.codeOf(toQuad(positions[i])));
        if (last < end) codes[last] = static_cast<std::uint8_t>(cubes.codeOf(read(positions[last])));
    });
}

} // namespace tesk::measurement::acceleration
