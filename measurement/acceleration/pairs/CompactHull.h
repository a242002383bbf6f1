#pragma once

#include <measurement/acceleration/vector/QuadBox.h>

#include <algorithm>
#include <cmath>

namespace tesk::measurement::acceleration {

/// What some triangles lie in: a box, and a disc as thick as they stand out along a direction, mostly their normal.
struct CompactHull {
    QuadBox box;
    Quad centre{};
    /// Of length 1.
    Quad normal{0.0f, 0.0f, 1.0f, 0.0f};
    /// The faces of the disc: along the normal, from the centre.
    float low = 0.0f;
    float high = 0.0f;
    float radius = 0.0f;
    /// The distance of what is farthest from the centre.
    float reach = 0.0f;
    /// The greatest of the triangles: 1 by the sine of the angle at the first corner.
    float inverseSine = 0.0f;
};

/// Unlike squaredGap() never too great but for the rounding of differences.
inline float squaredGapOf(const QuadBox& a, const QuadBox& b) {
    const Quad gap = positiveOrZero(larger(a.min - b.max, b.min - a.max));
    return sum(gap * gap);
}

struct Range {
    float low;
    float high;
};

inline float dot(const Quad& a, const Quad& b) { return sum(a * b); }

inline Quad cross(const Quad& a, const Quad& b) {
    const Quad nextA = __builtin_shufflevector(a, a, 1, 2, 0, 3), nextB = __builtin_shufflevector(b, b, 1, 2, 0, 3);
    const Quad product = a * nextB - nextA * b;
    return __builtin_shufflevector(product, product, 1, 2, 0, 3);
}

/// Where the disc lies along a direction of length 1, from its centre.
inline Range rangeAlong(const CompactHull& hull, const Quad& direction) {
    const float cosine = dot(hull.normal, direction);
    // A little more than 1, as lengths are rounded.
    const float side = hull.radius * std::sqrt(std::max(0.0f, 1.000002f - cosine * cosine));
    const float atLow = hull.low * cosine, atHigh = hull.high * cosine;
    return {std::min(atLow, atHigh) - side, std::max(atLow, atHigh) + side};
}

/// How far two discs are apart, seen along a direction of length 1 that points from the first to the second.
struct DiscGap {
    Quad direction{};
    /// Along the direction, and across it; 0 where there is no gap.
    float along = 0.0f;
    float across = 0.0f;

    float squared() const { return along * along + across * across; }
};

/// The gap seen along the normal of one of the discs, or its opposite.
inline DiscGap gapAlongNormal(const CompactHull& a, const CompactHull& b, const Quad& normal) {
    const Quad offset = b.centre - a.centre;
    const float height = dot(offset, normal);
    DiscGap gap;
    gap.direction = height < 0.0f ? -normal : normal;
    const float along = std::fabs(height) + rangeAlong(b, gap.direction).low - rangeAlong(a, gap.direction).high;
    const float aside = std::sqrt(std::max(0.0f, dot(offset, offset) - height * height));
    gap.along = std::max(0.0f, along);
    gap.across = std::max(0.0f, aside - a.reach - b.reach);
    return gap;
}

/// The greater of the gaps along the two normals.
inline DiscGap findDiscGap(const CompactHull& a, const CompactHull& b) {
    const DiscGap gap1 = gapAlongNormal(a, b, a.normal), gap2 = gapAlongNormal(a, b, b.normal);
    return gap1.squared() < gap2.squared() ? gap2 : gap1;
}

} // namespace tesk::measurement::acceleration
