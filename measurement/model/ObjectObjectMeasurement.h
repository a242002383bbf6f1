#pragma once

#include <measurement/model/AbstractMeasurement.h>

namespace tesk::measurement {

/// The minimum distance between the geometries of two objects.
///
/// The points are in world coordinates. The objects are searched anew on every update(); while one is missing the
/// distance is 0 and both points are at the origin. Objects without geometry leave what ObjectObjectDistanceCalculator
/// says of them.
///
/// \code
/// measurement->setNode1(wheel);
/// measurement->setNode2(fender);
/// measurement->update();
/// const float clearance = measurement->getValue();
/// \endcode
class TESK_MEASUREMENT_EXPORT ObjectObjectMeasurement : public AbstractMeasurement {
public:
    explicit ObjectObjectMeasurement(MeasurementManager* owner);
    /// Measures the two objects at once.
    ObjectObjectMeasurement(MeasurementManager* owner, const osg::NodePtr& firstObject,
                            const osg::NodePtr& secondObject);

    /// Finds the closest points; costs a whole ObjectObjectDistanceCalculator::calc().
    void update() override;
    /// The distance as of the last update().
    float getValue() const override { return distance; }

    /// The point of object 1 closest to object 2.
    osg::Pnt3f getPoint1() const { return point1; }
    /// The point of object 2 closest to object 1.
    osg::Pnt3f getPoint2() const { return point2; }
    /// From point 2 to point 1.
    osg::Vec3f getVector() const;

private:
    osg::Pnt3f point1{0.0f, 0.0f, 0.0f};
    osg::Pnt3f point2{0.0f, 0.0f, 0.0f};
    float distance = 0.0f;
};

} // namespace tesk::measurement
