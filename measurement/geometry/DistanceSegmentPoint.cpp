#include <measurement/geometry/DistanceSegmentPoint.h>

#include <measurement/geometry/detail/VectorMath.h>

namespace tesk::measurement {

DistanceSegmentPoint::DistanceSegmentPoint(const Segment& segment, const osg::Pnt3f& point) {
    calcDistance(segment, point);
}

void DistanceSegmentPoint::calcDistance(const Segment& segment, const osg::Pnt3f& point) {
    const osg::Vec3f direction = detail::difference(segment.end, segment.start);
    const osg::Vec3f offset = detail::difference(point, segment.start);
    const float squaredLength = detail::squaredLength(direction);
    const float projection = detail::dot(offset, direction);

    float t = projection / squaredLength;
    // Both are false for NaN, so a zero-length segment keeps its NaN parameter.
    if (t > 1.0f)
        t = 1.0f;
    else if (t < 0.0f)
        t = 0.0f;

    segmentParameter = t;
    squaredDistance = t * t * squaredLength + (-2.0f * t * projection + detail::dot(offset, offset));
    closestPoint = detail::pointAt(segment.start, t, direction);
}

} // namespace tesk::measurement
