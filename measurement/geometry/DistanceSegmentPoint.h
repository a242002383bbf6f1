#pragma once

#include <measurement/Export.h>
#include <measurement/geometry/Primitives.h>

namespace tesk::measurement {

/// The point of a segment nearest a query point.
///
/// Segment and point share one frame, the caller's choice; the closest point is in that frame, the distance squared in
/// its units. No allocation, no square root.
///
/// A segment of length zero gives NaN in every field; filter with isValid() and isFiniteNumber(). The squared distance
/// is not clamped and may come out slightly negative for a point on the segment.
///
/// Method: projection on the carrier line, clamped to the ends (Ericson, Real-Time Collision Detection, 5.1.2).
///
/// \code
/// const DistanceSegmentPoint query(edge, picked);
/// if (query.getSquaredDistance() < best) nearest = query.getClosestPoint();
/// \endcode
class TESK_MEASUREMENT_EXPORT DistanceSegmentPoint {
public:
    DistanceSegmentPoint(const Segment& segment, const osg::Pnt3f& point);
    /// Answers for other operands; replaces every result.
    void calcDistance(const Segment& segment, const osg::Pnt3f& point);

    const osg::Pnt3f& getClosestPoint() const { return closestPoint; }
    float getSquaredDistance() const { return squaredDistance; }
    /// Where the closest point lies: 0 at the segment's start, 1 at its end.
    float getSegmentParameter() const { return segmentParameter; }

private:
    osg::Pnt3f closestPoint{0.0f, 0.0f, 0.0f};
    float squaredDistance = 0.0f;
    float segmentParameter = 0.0f;
};

} // namespace tesk::measurement
