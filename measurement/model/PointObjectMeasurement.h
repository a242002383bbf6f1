#pragma once

#include <measurement/model/AbstractMeasurement.h>

namespace tesk::measurement {

/// The distance from a picked point to the closest point of an object's geometry.
///
/// Both points are in world coordinates. The object is searched anew on every update(); while point or object is
/// missing both points are the same and the value is 0. An object without geometry leaves point 2 where
/// PointObjectDistanceCalculator has it.
class TESK_MEASUREMENT_EXPORT PointObjectMeasurement : public AbstractMeasurement {
public:
    explicit PointObjectMeasurement(MeasurementManager* owner);

    /// Finds the object's closest point; costs a whole PointObjectDistanceCalculator::calc().
    void update() override;
    /// The distance between the points.
    float getValue() const override;

    /// Stores the point with the node it was picked on, then updates.
    void setPoint(const osg::NodePtr& node, const osg::Pnt3f& point);
    /// Stores the object, the root of a subtree, as node 2, then updates.
    void setNode(const osg::NodePtr& object);

    /// The picked point.
    osg::Pnt3f getPoint1() const { return point1; }
    /// The object's point closest to it.
    osg::Pnt3f getPoint2() const { return point2; }
    /// From point 2 to point 1.
    osg::Vec3f getVector() const;

private:
    osg::Pnt3f point1{0.0f, 0.0f, 0.0f};
    osg::Pnt3f point2{0.0f, 0.0f, 0.0f};
};

} // namespace tesk::measurement
