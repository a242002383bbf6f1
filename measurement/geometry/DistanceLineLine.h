#pragma once

#include <measurement/Export.h>
#include <measurement/geometry/Primitives.h>

namespace tesk::measurement {

/// The distance between two infinite lines and where they come nearest.
///
/// Both lines share one frame, the caller's choice; points are in that frame, the distance squared in its units,
/// parameters in lengths of the lines' directions. No allocation, no square root.
///
/// Use the parameters rather than the points: getClosestPoint0() yields the point on the second line and
/// getClosestPoint1() the origin. Parallel lines are measured from the origin of the second. Lines at right angles give
/// infinity or NaN in the second parameter and the squared distance, and so do directions of length zero; filter with
/// isValid() and isFiniteNumber(). The squared distance is not clamped and may come out slightly negative.
///
/// Method: minimum of a quadratic in both parameters (Schneider and Eberly, Geometric Tools for Computer Graphics,
/// chapter 10).
///
/// \code
/// const DistanceLineLine query(axis, ray);
/// const float alongAxis = query.getLineParameter0();
/// \endcode
class TESK_MEASUREMENT_EXPORT DistanceLineLine {
public:
    DistanceLineLine(const Line& line0, const Line& line1);
    /// Answers for other operands; replaces every result but closest point 1.
    void calcDistance(const Line& line0, const Line& line1);

    /// The nearest point of the second line.
    const osg::Pnt3f& getClosestPoint0() const { return closestPoint0; }
    /// Always the origin.
    const osg::Pnt3f& getClosestPoint1() const { return closestPoint1; }
    float getSquaredDistance() const { return squaredDistance; }
    float getLineParameter0() const { return lineParameter0; }
    float getLineParameter1() const { return lineParameter1; }

private:
    osg::Pnt3f closestPoint0{0.0f, 0.0f, 0.0f};
    osg::Pnt3f closestPoint1{0.0f, 0.0f, 0.0f};
    float squaredDistance = 0.0f;
    float lineParameter0 = 0.0f;
    float lineParameter1 = 0.0f;
};

} // namespace tesk::measurement
