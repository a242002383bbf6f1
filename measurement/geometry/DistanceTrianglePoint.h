#pragma once

#include <measurement/Export.h>
#include <measurement/geometry/Primitives.h>

namespace tesk::measurement {

/// The point of a triangle nearest a query point.
///
/// Triangle and point share one frame, the caller's choice; the closest point is in that frame, the distance squared
/// in its units. No allocation, no square root.
///
/// For a triangle without area (vertices equal or in a line) and for input that is not finite the closest point may be
/// NaN while the squared distance, which is never negative nor NaN, is 0: filter with isValid().
///
/// Method: minimum of a quadratic over seven regions of the parameter plane (Schneider and Eberly, Geometric Tools for
/// Computer Graphics, 10.3.2).
///
/// \code
/// const DistanceTrianglePoint query(triangle, osg::Vec3f(picked));
/// if (isValid(query.getClosestPoint())) distance = std::sqrt(query.getSquaredDistance());
/// \endcode
class TESK_MEASUREMENT_EXPORT DistanceTrianglePoint {
public:
    /// `point` is the position vector of the query point.
    DistanceTrianglePoint(const Triangle& triangle, const osg::Vec3f& point);
    /// Answers for other operands; replaces every result.
    void calcDistance(const Triangle& triangle, const osg::Vec3f& point);

    const osg::Pnt3f& getClosestPoint() const { return closestPoint; }
    float getSquaredDistance() const { return squaredDistance; }

private:
    osg::Pnt3f closestPoint{0.0f, 0.0f, 0.0f};
    float squaredDistance = 0.0f;
};

} // namespace tesk::measurement
