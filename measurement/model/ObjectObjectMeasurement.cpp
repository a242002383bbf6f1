#include <measurement/model/ObjectObjectMeasurement.h>

#include <measurement/geometry/detail/VectorMath.h>
#include <measurement/scene/ObjectObjectDistanceCalculator.h>

#include <cmath>

namespace tesk::measurement {

ObjectObjectMeasurement::ObjectObjectMeasurement(MeasurementManager* owner) : AbstractMeasurement(owner) {
    ObjectObjectMeasurement::update();
}

ObjectObjectMeasurement::ObjectObjectMeasurement(MeasurementManager* owner, const osg::NodePtr& firstObject,
                                                 const osg::NodePtr& secondObject)
    : AbstractMeasurement(owner, firstObject, secondObject) {
    ObjectObjectMeasurement::update();
}

void ObjectObjectMeasurement::update() {
    const osg::NodePtr firstObject = getNode1();
    const osg::NodePtr secondObject = getNode2();
    if (firstObject == osg::NullFC || secondObject == osg::NullFC) {
        point1 = point2 = osg::Pnt3f(0.0f, 0.0f, 0.0f);
        distance = 0.0f;
    } else {
        ObjectObjectDistanceCalculator calculator;
        calculator.calc(firstObject, secondObject);
        point1 = calculator.getPoint1();
        point2 = calculator.getPoint2();
        // From the points, whatever distance the calculator ended its search with.
        distance = std::sqrt(detail::squaredLength(getVector()));
    }
    AbstractMeasurement::update();
}

osg::Vec3f ObjectObjectMeasurement::getVector() const { return detail::difference(point1, point2); }

} // namespace tesk::measurement
