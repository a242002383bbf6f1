#pragma once

#include <measurement/Export.h>
#include <measurement/geometry/Primitives.h>

namespace tesk::measurement {

/// Where an infinite line pierces a triangle or, when it misses, its nearest edge.
///
/// Both operands share one frame, the caller's choice; points are in that frame, the distance squared in its units. No
/// allocation, no square root.
///
/// A line that pierces the triangle has distance 0. Every other one is measured against the three edges by
/// DistanceLineSegment and has its deviations: the distance may be larger than the minimum. That includes a line in the
/// triangle's plane, for which the interior does not count.
///
/// When no edge gives a number below the largest finite one (a direction of length zero, input that is not finite or
/// too large), the squared distance is 3.4028235e38, the line parameter NaN, and the points stay what they were: the
/// origin in a new object.
///
/// Method: crossing with the plane, tested in the coordinate plane that the triangle faces most (Badouel, An Efficient
/// Ray-Polygon Intersection, Graphics Gems, 1990).
///
/// \code
/// const DistanceLineTriangle query(ray, triangle);
/// const bool isHit = query.getSquaredDistance() == 0.0f && query.getLineParameter() >= 0.0f;
/// \endcode
class TESK_MEASUREMENT_EXPORT DistanceLineTriangle {
public:
    DistanceLineTriangle(const Line& line, const Triangle& triangle);
    /// Answers for other operands; replaces every result but the points when no edge counts.
    void calcDistance(const Line& line, const Triangle& triangle);

    const osg::Pnt3f& getClosestLinePoint() const { return closestLinePoint; }
    const osg::Pnt3f& getClosestTrianglePoint() const { return closestTrianglePoint; }
    float getSquaredDistance() const { return squaredDistance; }
    /// Where the line's point lies, in lengths of the line's direction.
    float getLineParameter() const { return lineParameter; }

private:
    osg::Pnt3f closestLinePoint{0.0f, 0.0f, 0.0f};
    osg::Pnt3f closestTrianglePoint{0.0f, 0.0f, 0.0f};
    float squaredDistance = 0.0f;
    float lineParameter = 0.0f;
};

} // namespace tesk::measurement
