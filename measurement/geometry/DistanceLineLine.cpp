#include <measurement/geometry/DistanceLineLine.h>

#include <measurement/geometry/detail/VectorMath.h>

namespace tesk::measurement {

DistanceLineLine::DistanceLineLine(const Line& line0, const Line& line1) { calcDistance(line0, line1); }

void DistanceLineLine::calcDistance(const Line& line0, const Line& line1) {
    const osg::Vec3f offset = detail::difference(line0.origin, line1.origin);
    const float a00 = detail::dot(line0.direction, line0.direction);
    const float a01 = detail::dot(line0.direction, line1.direction);
    const float a11 = detail::dot(line1.direction, line1.direction);
    const float b0 = detail::dot(line0.direction, offset);
    const float c = detail::dot(offset, offset);
    const float det = a01 * a01 - a11 * a00;

    // Both are false for NaN, which is treated like parallel lines.
    if (det < 0.0f || det > 0.0f) {
        const float b1 = detail::dot(line1.direction, offset);
        const float s = (b0 * a11 - a01 * b1) / det;
        // Deliberate: lines at right angles (a01 = 0) get an infinite or NaN parameter and distance.
        const float t = (a00 * s + b0) / a01;
        squaredDistance = c + 2.0f * ((b0 - a01 * t) * s - b1 * t) + t * t * a11 + s * s * a00;
        lineParameter0 = s;
        lineParameter1 = t;
    } else {
        const float s = -b0 / a00;
        squaredDistance = c + 2.0f * s * b0 + s * s * a00;
        lineParameter0 = s;
        lineParameter1 = 0.0f;
    }

    // Deliberate: the second line's point takes the place of the first line's, and closestPoint1 stays at the origin.
    closestPoint0 = detail::pointAt(line1.origin, lineParameter1, line1.direction);
}

} // namespace tesk::measurement
