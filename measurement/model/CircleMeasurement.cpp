#include <measurement/model/CircleMeasurement.h>

#include <measurement/geometry/detail/VectorMath.h>

#include <cmath>

namespace tesk::measurement {

namespace {

// t in m1 + t * u = m2 + s * w with d = m2 - m1, solved on two of the three coordinates.
float solveOn(int first, int second, const osg::Vec3f& d, const osg::Vec3f& u, const osg::Vec3f& w) {
    return (d[first] * w[second] - d[second] * w[first]) / (u[first] * w[second] - u[second] * w[first]);
}

// Only 0/0 goes on to the next two coordinates. Deliberate: a quotient that is infinite, or large for lack of
// precision, is the answer, even where other coordinates would give a better one.
float solve(const osg::Vec3f& d, const osg::Vec3f& u, const osg::Vec3f& w) {
    float t = solveOn(1, 2, d, u, w);
    if (std::isnan(t)) t = solveOn(2, 0, d, u, w);
    if (std::isnan(t)) t = solveOn(0, 1, d, u, w);
    return std::isnan(t) ? 0.0f : t;
}

} // namespace

CircleMeasurement::CircleMeasurement(MeasurementManager* owner) : AbstractMeasurement(owner) {
    CircleMeasurement::update();
}

void CircleMeasurement::update() {
    const osg::Vec3f chord1 = detail::difference(point2, point1);
    const osg::Vec3f chord2 = detail::difference(point3, point1);
    normal = detail::cross(chord1, chord2);
    const osg::Pnt3f middle1 = detail::pointAt(point1, 0.5f, chord1);
    const osg::Pnt3f middle2 = detail::pointAt(point1, 0.5f, chord2);
    const osg::Vec3f bisector1 = detail::cross(normal, chord1);
    const osg::Vec3f bisector2 = detail::cross(normal, chord2);
    const float t = solve(detail::difference(middle2, middle1), bisector1, bisector2);
    center = detail::pointAt(middle1, t, bisector1);
    AbstractMeasurement::update();
}

float CircleMeasurement::getValue() const {
    return std::sqrt(detail::squaredLength(detail::difference(center, point1)));
}

void CircleMeasurement::setPoint1(const osg::NodePtr& node, const osg::Pnt3f& point) {
    point1 = point;
    setNode1(node);
    update();
}

void CircleMeasurement::setPoint2(const osg::NodePtr& node, const osg::Pnt3f& point) {
    point2 = point;
    setNode2(node);
    update();
}

void CircleMeasurement::setPoint3(const osg::NodePtr& node, const osg::Pnt3f& point) {
    point3 = point;
    setNode3(node);
    update();
}

osg::Vec3f CircleMeasurement::getVector() const { return detail::difference(point1, point2); }

} // namespace tesk::measurement
