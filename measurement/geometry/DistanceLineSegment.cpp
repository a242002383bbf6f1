#include <measurement/geometry/DistanceLineSegment.h>

#include <measurement/geometry/detail/LineSegment.h>

namespace tesk::measurement {

DistanceLineSegment::DistanceLineSegment(const Line& line, const Segment& segment) { calcDistance(line, segment); }

void DistanceLineSegment::calcDistance(const Line& line, const Segment& segment) {
    const detail::LineSegmentResult result = detail::measureLineSegment(line, segment);
    squaredDistance = result.squaredDistance;
    lineParameter = result.lineParameter;
    segmentParameter = result.segmentParameter;
    closestLinePoint = detail::pointAt(line.origin, lineParameter, line.direction);
    closestSegmentPoint = detail::pointOf(segment, segmentParameter);
}

} // namespace tesk::measurement
