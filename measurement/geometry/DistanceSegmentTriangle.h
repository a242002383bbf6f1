#pragma once

#include <measurement/Export.h>
#include <measurement/geometry/Primitives.h>

namespace tesk::measurement {

/// A point of a segment near a triangle and a point of the triangle near it.
///
/// Both operands share one frame, the caller's choice; points are in that frame, the distance squared in its units. No
/// allocation, no square root.
///
/// The segment's carrier line is measured by DistanceLineTriangle. When its point lies beyond an end of the segment,
/// that end is measured by DistanceTrianglePoint instead. The deviations of the line query remain: the distance is that
/// between the two points, but may be larger than the minimum.
///
/// When the line query finds nothing (a segment of length zero, input that is not finite), the start is measured and
/// the segment parameter is NaN. A triangle without area may give a NaN point; filter with isValid().
///
/// \code
/// const DistanceSegmentTriangle query(edge, triangle);
/// if (query.getSquaredDistance() == 0.0f) crossing = query.getClosestTrianglePoint();
/// \endcode
class TESK_MEASUREMENT_EXPORT DistanceSegmentTriangle {
public:
    DistanceSegmentTriangle(const Segment& segment, const Triangle& triangle);
    /// Answers for other operands; replaces every result.
    void calcDistance(const Segment& segment, const Triangle& triangle);

    const osg::Pnt3f& getClosestSegmentPoint() const { return closestSegmentPoint; }
    const osg::Pnt3f& getClosestTrianglePoint() const { return closestTrianglePoint; }
    float getSquaredDistance() const { return squaredDistance; }
    /// Where the carrier line is nearest: 0 at the segment's start, 1 at its end. Not clamped: outside [0, 1] the
    /// closest segment point is the end on that side.
    float getSegmentParameter() const { return segmentParameter; }

private:
    osg::Pnt3f closestSegmentPoint{0.0f, 0.0f, 0.0f};
    osg::Pnt3f closestTrianglePoint{0.0f, 0.0f, 0.0f};
    float squaredDistance = 0.0f;
    float segmentParameter = 0.0f;
};

} // namespace tesk::measurement
