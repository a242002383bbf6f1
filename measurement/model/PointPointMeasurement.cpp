#include <measurement/model/PointPointMeasurement.h>

#include <measurement/geometry/detail/VectorMath.h>

#include <cmath>

namespace tesk::measurement {

PointPointMeasurement::PointPointMeasurement(MeasurementManager* owner) : AbstractMeasurement(owner) {
    AbstractMeasurement::update();
}

void PointPointMeasurement::update() { AbstractMeasurement::update(); }

float PointPointMeasurement::getValue() const { return std::sqrt(detail::squaredLength(getVector())); }

void PointPointMeasurement::setPoint1(const osg::NodePtr& node, const osg::Pnt3f& point) {
    point1 = point;
    setNode1(node);
    update();
}

void PointPointMeasurement::setPoint2(const osg::NodePtr& node, const osg::Pnt3f& point) {
    point2 = point;
    setNode2(node);
    update();
}

osg::Vec3f PointPointMeasurement::getVector() const { return detail::difference(point1, point2); }

} // namespace tesk::measurement
