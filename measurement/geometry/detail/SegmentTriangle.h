#pragma once

#include <measurement/geometry/Primitives.h>
#include <measurement/geometry/detail/LineTriangle.h>
#include <measurement/geometry/detail/TrianglePoint.h>
#include <measurement/geometry/detail/VectorMath.h>

namespace tesk::measurement::detail {

struct SegmentTriangleResult {
    osg::Pnt3f segmentPoint;
    osg::Pnt3f trianglePoint;
    float squaredDistance;
    float segmentParameter;
};

inline SegmentTriangleResult measureSegmentTriangle(const Segment& segment, const Triangle& triangle) {
    const Line line{segment.start, difference(segment.end, segment.start)};
    const LineTriangleResult byLine = measureLineTriangle(line, triangle);
    const float parameter = byLine.lineParameter;
    if (parameter >= 0.0f && parameter <= 1.0f)
        return {byLine.linePoint, byLine.trianglePoint, byLine.squaredDistance, parameter};
    // NaN takes the start.
    const osg::Pnt3f& end = parameter > 1.0f ? segment.end : segment.start;
    const TrianglePointResult byPoint = measureTrianglePoint(triangle, end);
    return {end, byPoint.closestPoint, byPoint.squaredDistance, parameter};
}

} // namespace tesk::measurement::detail
