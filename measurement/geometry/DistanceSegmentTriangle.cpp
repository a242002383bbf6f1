#include <measurement/geometry/DistanceSegmentTriangle.h>

#include <measurement/geometry/detail/SegmentTriangle.h>

namespace tesk::measurement {

DistanceSegmentTriangle::DistanceSegmentTriangle(const Segment& segment, const Triangle& triangle) {
    calcDistance(segment, triangle);
}

void DistanceSegmentTriangle::calcDistance(const Segment& segment, const Triangle& triangle) {
    const detail::SegmentTriangleResult result = detail::measureSegmentTriangle(segment, triangle);
    closestSegmentPoint = result.segmentPoint;
    closestTrianglePoint = result.trianglePoint;
    squaredDistance = result.squaredDistance;
    segmentParameter = result.segmentParameter;
}

} // namespace tesk::measurement
