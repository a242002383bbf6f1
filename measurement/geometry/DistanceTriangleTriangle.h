#pragma once

#include <measurement/Export.h>
#include <measurement/geometry/Primitives.h>

namespace tesk::measurement {

/// The distance between two triangles, 0 where they touch or cross.
///
/// Both triangles share one frame, the caller's choice; points are in that frame, the distance squared in its units. No
/// allocation, no square root.
///
/// Each edge of one triangle is measured against the other by DistanceSegmentTriangle, the first triangle's edges
/// first; of equal distances the earliest stays. The deviations of that query remain: the distance is that between the
/// two points, but may be larger than the minimum, and another winding may give another one. The search ends early
/// - at a squared distance up to 1.1920929e-07: the first touch is reported;
/// - at an edge of length zero, with what was found before: a first triangle whose p2 equals p0 leaves 3.4028235e38
///   and both points at the origin, and one given as (start, end, end) is measured by its own edges only.
///
/// Input that is not finite leaves the same values or gives NaN; filter with isValid().
///
/// \code
/// const DistanceTriangleTriangle query(first, second);
/// if (query.getSquaredDistance() < best) pair = {query.getClosestPoint1(), query.getClosestPoint2()};
/// \endcode
class TESK_MEASUREMENT_EXPORT DistanceTriangleTriangle {
public:
    /// Writes the line "Zero distance with tri!" to standard output when the triangles touch.
    DistanceTriangleTriangle(const Triangle& triangle1, const Triangle& triangle2);
    /// Answers for other operands, silently. The points are replaced where a distance is found.
    void calcDistance(const Triangle& triangle1, const Triangle& triangle2);

    /// On the first triangle.
    const osg::Pnt3f& getClosestPoint1() const { return closestPoint1; }
    /// On the second triangle.
    const osg::Pnt3f& getClosestPoint2() const { return closestPoint2; }
    float getSquaredDistance() const { return squaredDistance; }

private:
    osg::Pnt3f closestPoint1{0.0f, 0.0f, 0.0f};
    osg::Pnt3f closestPoint2{0.0f, 0.0f, 0.0f};
    float squaredDistance = 0.0f;
};

} // namespace tesk::measurement
