#include <measurement/model/PointObjectMeasurement.h>

#include <measurement/geometry/detail/VectorMath.h>
#include <measurement/scene/PointObjectDistanceCalculator.h>

#include <cmath>

namespace tesk::measurement {

PointObjectMeasurement::PointObjectMeasurement(MeasurementManager* owner) : AbstractMeasurement(owner) {
    PointObjectMeasurement::update();
}

void PointObjectMeasurement::update() {
    const osg::NodePtr pickedNode = getNode1();
    const osg::NodePtr object = getNode2();
    if (pickedNode == osg::NullFC || object == osg::NullFC) {
        point2 = point1;
    } else {
        PointObjectDistanceCalculator calculator;
        calculator.calc(point1, object);
        point2 = calculator.getPoint();
    }
    AbstractMeasurement::update();
}

float PointObjectMeasurement::getValue() const { return std::sqrt(detail::squaredLength(getVector())); }

void PointObjectMeasurement::setPoint(const osg::NodePtr& node, const osg::Pnt3f& point) {
    point1 = point;
    setNode1(node);
    update();
}

void PointObjectMeasurement::setNode(const osg::NodePtr& object) {
    setNode2(object);
    update();
}

osg::Vec3f PointObjectMeasurement::getVector() const { return detail::difference(point1, point2); }

} // namespace tesk::measurement
