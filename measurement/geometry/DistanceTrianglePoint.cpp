#include <measurement/geometry/DistanceTrianglePoint.h>

#include <measurement/geometry/detail/TrianglePoint.h>

namespace tesk::measurement {

DistanceTrianglePoint::DistanceTrianglePoint(const Triangle& triangle, const osg::Vec3f& point) {
    calcDistance(triangle, point);
}

void DistanceTrianglePoint::calcDistance(const Triangle& triangle, const osg::Vec3f& point) {
    const detail::TrianglePointResult result = detail::measureTrianglePoint(triangle, osg::Pnt3f(point));
    closestPoint = result.closestPoint;
    squaredDistance = result.squaredDistance;
}

} // namespace tesk::measurement
