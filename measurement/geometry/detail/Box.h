#pragma once

#include <measurement/geometry/Primitives.h>

#include <algorithm>
#include <cmath>

namespace tesk::measurement::detail {

/// An axis-aligned box.
struct Box {
    osg::Pnt3f min;
    osg::Pnt3f max;
};

/// Bounds of the squared distance between what two boxes hold: lower is the squared gap between the
/// boxes, upper the squared distance of their farthest corners.
struct DistanceBounds {
    float lower;
    float upper;
};

// A NaN in the first vertex makes the extremes NaN, one in another vertex is passed over.
inline float lowest(const Triangle& triangle, int axis) {
    return std::min(std::min(triangle.p0[axis], triangle.p1[axis]), triangle.p2[axis]);
}

inline float highest(const Triangle& triangle, int axis) {
    return std::max(std::max(triangle.p0[axis], triangle.p1[axis]), triangle.p2[axis]);
}

inline Box boxOf(const Triangle& triangle) {
    return {{lowest(triangle, 0), lowest(triangle, 1), lowest(triangle, 2)},
            {highest(triangle, 0), highest(triangle, 1), highest(triangle, 2)}};
}

/// Lower is never NaN, whatever the boxes hold: a gap counts only where the comparison of two
/// numbers says so. Upper is NaN where infinite corners coincide.
inline DistanceBounds distanceBounds(const Box& a, const Box& b) {
    DistanceBounds bounds{0.0f, 0.0f};
    for (int axis = 0; axis < 3; ++axis) {
        const float halfSizes = (b.max[axis] - b.min[axis]) * 0.5f + (a.max[axis] - a.min[axis]) * 0.5f;
        const float centreDistance = std::fabs((a.min[axis] + a.max[axis]) * 0.5f - (b.min[axis] + b.max[axis]) * 0.5f);
        const float gap = halfSizes < centreDistance ? centreDistance - halfSizes : 0.0f;
        const float reach = std::max(std::fabs(a.max[axis] - b.min[axis]), std::fabs(b.max[axis] - a.min[axis]));
        bounds.lower += gap * gap;
        bounds.upper += reach * reach;
    }
    return bounds;
}

/// The squared gap between two boxes. Not the lower of distanceBounds(): the order of operations
/// differs, and so may the last bit.
inline float squaredGap(const Box& a, const Box& b) {
    float sum = 0.0f;
    for (int axis = 0; axis < 3; ++axis) {
        const float centres = std::fabs((b.min[axis] + b.max[axis]) - (a.min[axis] + a.max[axis]));
        const float sizes = (b.max[axis] - b.min[axis]) + (a.max[axis] - a.min[axis]);
        const float gap = (centres - sizes) * 0.5f;
        if (gap > 0.0f) sum += gap * gap;
    }
    return sum;
}

} // namespace tesk::measurement::detail
