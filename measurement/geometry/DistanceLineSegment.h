#pragma once

#include <measurement/Export.h>
#include <measurement/geometry/Primitives.h>

namespace tesk::measurement {

/// A point of a segment near an infinite line and the line's point nearest to it.
///
/// Both operands share one frame, the caller's choice; points are in that frame, the distance squared in its units. No
/// allocation, no square root.
///
/// The distance is that between the two points, but the point on the segment is not always the nearest one: its
/// parameter comes from the line's offset alone, so the distance may be larger than the minimum and depends on where
/// the line's origin lies. A line parallel to the segment is measured from the segment's start.
///
/// A line direction of length zero gives NaN; a segment of length zero is a point. Filter with isValid() and
/// isFiniteNumber(). The squared distance is not clamped and may come out slightly negative.
///
/// Method: minimum of a quadratic in both parameters, clamped to the segment (Schneider and Eberly, Geometric Tools for
/// Computer Graphics, chapter 10), with the deviation above.
///
/// \code
/// const DistanceLineSegment query(axis, edge);
/// if (query.getSquaredDistance() < best) nearest = query.getClosestSegmentPoint();
/// \endcode
class TESK_MEASUREMENT_EXPORT DistanceLineSegment {
public:
    DistanceLineSegment(const Line& line, const Segment& segment);
    /// Answers for other operands; replaces every result.
    void calcDistance(const Line& line, const Segment& segment);

    const osg::Pnt3f& getClosestLinePoint() const { return closestLinePoint; }
    const osg::Pnt3f& getClosestSegmentPoint() const { return closestSegmentPoint; }
    float getSquaredDistance() const { return squaredDistance; }
    /// Where the line's point lies, in lengths of the line's direction.
    float getLineParameter() const { return lineParameter; }
    /// Where the segment's point lies: 0 at its start, 1 at its end.
    float getSegmentParameter() const { return segmentParameter; }

private:
    osg::Pnt3f closestLinePoint{0.0f, 0.0f, 0.0f};
    osg::Pnt3f closestSegmentPoint{0.0f, 0.0f, 0.0f};
    float squaredDistance = 0.0f;
    float lineParameter = 0.0f;
    float segmentParameter = 0.0f;
};

} // namespace tesk::measurement
