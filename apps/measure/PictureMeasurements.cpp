#include <apps/measure/PictureMeasurements.h>

#include <apps/measure/SampleFile.h>

#include <measurement/model/CircleMeasurement.h>
#include <measurement/model/ObjectObjectMeasurement.h>
#include <measurement/model/PointObjectMeasurement.h>
#include <measurement/model/PointPointMeasurement.h>

#include <platform/cores/Camboard.h>

#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGGroup.h>

#include <cmath>
#include <limits>

namespace tesk::measure {

namespace {

using measurement::Measurement;

template <typename LabelVisualisation> void style(LabelVisualisation& visualisation, const PictureStyle& wanted) {
    // Scaled by nothing but the view: the same size on the picture at any distance.
    visualisation.setScaleLimits(0.0f, std::numeric_limits<float>::max());
    visualisation.setTextScale(wanted.labelHeight);
}

void addEnds(std::vector<osg::Pnt3f>& points, const osg::Pnt3f& end1, const osg::Pnt3f& end2, float inset) {
    const osg::Vec3f way = end2 - end1;
    points.push_back(end1 + way * inset);
    points.push_back(end1 + way * 0.5f);
    points.push_back(end2 - way * inset);
}

template <typename Kind>
bool addDistance(std::vector<osg::Pnt3f>& points, const Measurement& measurement, float inset) {
    const auto* distance = dynamic_cast<const Kind*>(&measurement);
    if (distance != nullptr) addEnds(points, distance->getPoint1(), distance->getPoint2(), inset);
    return distance != nullptr;
}

void addCircle(std::vector<osg::Pnt3f>& points, const measurement::CircleMeasurement& circle) {
    constexpr int count = 24;
    const osg::Pnt3f center = circle.getCenter();
    const osg::Vec3f right = circle.getPoint1() - center;
    osg::Vec3f normal = circle.getNormal();
    normal.normalize();
    const osg::Vec3f up = normal.cross(right);
    for (int i = 0; i < count; ++i) {
        const float angle = 2.0f * osg::Pi * static_cast<float>(i) / static_cast<float>(count);
        points.push_back(center + right * std::cos(angle) + up * std::sin(angle));
    }
    points.push_back(center);
}

void addLabels(std::vector<PictureLabel>& labels, const measurement::AbstractMeasurementVisualisation& visualisation,
               osg::UInt32 labelChild) {
    constexpr osg::UInt32 plateChild = 1, lowerCorner = 12, upperCorner = 14;
    for (const auto& shown : visualisation.getVisualisations()) {
        const osg::NodePtr label = shown.second->getChild(labelChild);
        const auto plate = osg::GeometryPtr::dcast(label->getChild(plateChild)->getCore());
        const osg::Pnt3f lower = plate->getPositions()->getValue(lowerCorner);
        const osg::Pnt3f upper = plate->getPositions()->getValue(upperCorner);
        labels.push_back({osg::CamboardPtr::dcast(label->getCore())->getPosition(), osg::Vec2f(lower[0], lower[1]),
                          osg::Vec2f(upper[0], upper[1])});
    }
}

} // namespace

PictureMeasurements::PictureMeasurements(const PictureStyle& wanted) : root(osg::makeCoredNode<osg::Group>()) {
    style(distances, wanted);
    style(circles, wanted);
    const auto attach = [&](auto& visualisation, float lineWidth) {
        visualisation.setPrecision(wanted.decimals);
        if constexpr (!std::is_same_v<decltype(visualisation), measurement::LineObjectLegendVisualisation&>)
            visualisation.setLineWidth(lineWidth);
        const osg::CPEditor editor(root.get(), osg::Node::ChildrenFieldMask);
        root->addChild(visualisation.getVisualisation());
    };
    attach(samples, wanted.lineWidth);
    attach(circles, wanted.lineWidth);
    attach(distances, wanted.lineWidth);
    attach(chart, wanted.lineWidth);
    attach(legend, wanted.lineWidth);
}

void PictureMeasurements::add(const Measurement& measurement) {
    distances.addMeasurement(&measurement);
    circles.addMeasurement(&measurement);
    samples.addMeasurement(&measurement);
}

void PictureMeasurements::setActive(const Measurement& measurement) {
    chart.setActiveMeasurement(&measurement);
    legend.setActiveMeasurement(&measurement);
}

std::vector<PictureLabel> PictureMeasurements::getLabels() const {
    constexpr osg::UInt32 labelOfDistance = 2, labelOfCircle = 7;
    std::vector<PictureLabel> labels;
    addLabels(labels, distances, labelOfDistance);
    addLabels(labels, circles, labelOfCircle);
    return labels;
}

std::vector<osg::Pnt3f> pointsOf(const Measurement& measurement, float inset) {
    std::vector<osg::Pnt3f> points;
    const bool hasEnds = addDistance<measurement::PointPointMeasurement>(points, measurement, inset) ||
                         addDistance<measurement::PointObjectMeasurement>(points, measurement, inset) ||
                         addDistance<measurement::ObjectObjectMeasurement>(points, measurement, inset);
    if (hasEnds) return points;
    if (const auto* circle = dynamic_cast<const measurement::CircleMeasurement*>(&measurement))
        addCircle(points, *circle);
    if (const auto* pairs = samplesOf(measurement)) {
        for (const auto& [point1, point2] : *pairs) addEnds(points, point1, point2, inset);
    }
    return points;
}

} // namespace tesk::measure
