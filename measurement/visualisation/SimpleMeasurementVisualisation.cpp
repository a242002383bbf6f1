#include <measurement/visualisation/SimpleMeasurementVisualisation.h>

#include <measurement/geometry/Primitives.h>
#include <measurement/model/ObjectObjectMeasurement.h>
#include <measurement/model/PointObjectMeasurement.h>
#include <measurement/model/PointPointMeasurement.h>
#include <measurement/visualisation/detail/FixedNumber.h>
#include <measurement/visualisation/detail/MeasurementPoints.h>
#include <measurement/visualisation/detail/Subtree.h>

#include <OpenSG/OSGGroup.h>

#include <optional>

namespace tesk::measurement {

namespace {

const osg::UInt32 lineChild = 0;
const osg::UInt32 arrowCount = 1;

template <class Kind> std::optional<Segment> measuredLine(const Measurement* measurement) {
    const auto* kind = dynamic_cast<const Kind*>(measurement);
    if (!kind) return std::nullopt;
    return Segment{kind->getPoint1(), kind->getPoint2()};
}

/// The line between the points of a measurement of one of the supported kinds.
std::optional<Segment> getMeasuredLine(const Measurement* measurement) {
    if (const auto line = measuredLine<ObjectObjectMeasurement>(measurement)) return line;
    if (const auto line = measuredLine<PointObjectMeasurement>(measurement)) return line;
    return measuredLine<PointPointMeasurement>(measurement);
}

} // namespace

SimpleMeasurementVisualisation::SimpleMeasurementVisualisation()
    : LabelledMeasurementVisualisation(lineChild, arrowCount) {}

SimpleMeasurementVisualisation::~SimpleMeasurementVisualisation() = default;

bool SimpleMeasurementVisualisation::isSupported(const Measurement* measurement) {
    return getMeasuredLine(measurement).has_value();
}

osg::NodePtr SimpleMeasurementVisualisation::createVisualisation(const Measurement* measurement) {
    if (!isSupported(measurement)) return osg::NullFC;
    const osg::GeoPositionsPtr positions = osg::GeoPositions3f::create();
    const osg::NodePtr node =
        detail::createParent<osg::Group>({createLine(positions), createArrowheads(positions), createLabel(positions)});
    updateVisualisation(measurement, node);
    return node;
}

void SimpleMeasurementVisualisation::updateVisualisation(const Measurement* measurement, const osg::NodePtr& node) {
    const std::optional<Segment> line = getMeasuredLine(measurement);
    if (!line || !isSupported(measurement)) return;
    placeLabel(node, detail::midpoint(line->start, line->end));
    osg::Vec2f textSize;
    updateText(measurement, node, osg::Pnt2f(0.0f, 0.0f), textSize);
    fillPositions(node, {{line->start, line->end, detail::headVector(line->start, line->end)}}, textSize);
}

void SimpleMeasurementVisualisation::updateText(const Measurement* measurement, const osg::NodePtr& node,
                                                const osg::Pnt2f& position, osg::Vec2f& size) {
    size = fillText(node, {detail::fixedNumber(measurement->getValue(), getPrecision())}, position);
}

} // namespace tesk::measurement
