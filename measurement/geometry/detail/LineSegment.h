#pragma once

#include <measurement/geometry/Primitives.h>
#include <measurement/geometry/detail/VectorMath.h>

namespace tesk::measurement::detail {

struct LineSegmentResult {
    float squaredDistance;
    float lineParameter;
    float segmentParameter;
};

inline osg::Pnt3f pointOf(const Segment& segment, float parameter) {
    return pointAt(segment.start, parameter, difference(segment.end, segment.start));
}

inline LineSegmentResult measureLineSegment(const Line& line, const Segment& segment) {
    const osg::Vec3f offset = difference(line.origin, segment.start);
    const osg::Vec3f edge = difference(segment.end, segment.start);
    const float a00 = dot(line.direction, line.direction);
    const float a01 = dot(edge, line.direction);
    const float a11 = dot(edge, edge);
    const float b0 = dot(line.direction, offset);
    const float c = dot(offset, offset);
    const float det = a01 * a01 - a11 * a00;

    // Both are false for NaN, which is treated like a parallel line: measured from the segment's start.
    if (det < 0.0f || det > 0.0f) {
        // Deliberate: b0 in both products, so this is not always the segment's nearest point.
        const float unclamped = (b0 * a01 - a00 * b0) / det;
        if (unclamped >= 0.0f) {
            const float t = unclamped > 1.0f ? 1.0f : unclamped;
            const float b1 = dot(edge, offset);
            const float s = (a01 * t - b0) / a00;
            return {c + 2.0f * ((b0 - a01 * t) * s - b1 * t) + a11 * t * t + s * s * a00, s, t};
        }
    }
    const float s = -b0 / a00;
    return {c + 2.0f * s * b0 + s * s * a00, s, 0.0f};
}

} // namespace tesk::measurement::detail
