#include <apps/measure/MeasurementReport.h>

#include <apps/measure/Failure.h>
#include <apps/measure/NodeListing.h>

#include <measurement/model/CircleMeasurement.h>
#include <measurement/model/MeasurementManager.h>
#include <measurement/model/ObjectObjectMeasurement.h>
#include <measurement/model/PointObjectMeasurement.h>
#include <measurement/model/PointPointMeasurement.h>
#include <measurement/section/GapMeasurement.h>
#include <measurement/section/LineObjectMeasurement.h>

#include <algorithm>
#include <cmath>

namespace tesk::measure {

namespace {

using measurement::CircleMeasurement;
using measurement::GapMeasurement;
using measurement::LineObjectMeasurement;
using measurement::ObjectObjectMeasurement;
using measurement::PointObjectMeasurement;
using measurement::PointPointMeasurement;

osg::Vec3f fromOrigin(const osg::Pnt3f& point) { return {point[0], point[1], point[2]}; }

/// Exactly zero: the comparison of two vectors allows for 1e-6, more than the normal of a small circle.
bool isZero(const osg::Vec3f& vector) { return vector[0] == 0.0f && vector[1] == 0.0f && vector[2] == 0.0f; }

/// What every straight distance has: its length, both ends and the vector from the second to the first.
template <typename DistanceMeasurement>
Report distanceReport(const DistanceMeasurement& measurement, const MeasurementInput& input) {
    Report report;
    report.numbers = {{"distance", "value", measurement.getValue()}};
    report.vectors = {{"point 1", "point1", fromOrigin(measurement.getPoint1()), input.getNodeName(0)},
                      {"point 2", "point2", fromOrigin(measurement.getPoint2()), input.getNodeName(1)},
                      {"Δ", "delta", measurement.getVector(), ""}};
    return report;
}

Report pointObjectReport(const PointObjectMeasurement& measurement, const MeasurementInput& input) {
    MeasurementInput shown = input;
    // A free point, which counts as lying on the object, lies on no node.
    if (input.nodes[0] == input.nodes[1]) shown.nodes[0] = nullptr;
    return distanceReport(measurement, shown);
}

float largestExtent(const CatalogueNode& object) {
    const Bounds bounds = worldBounds(object.node).value_or(Bounds{});
    const osg::Vec3f extent = bounds.upper - bounds.lower;
    return std::max({extent[0], extent[1], extent[2]});
}

bool containsOrigin(const CatalogueNode& object) {
    constexpr float rounding = 1e-5f;
    measurement::MeasurementManager manager;
    auto& measurement = *manager.createPointObjectMeasurement();
    measurement.setPoint(object.node, osg::Pnt3f(0.0f, 0.0f, 0.0f));
    measurement.setNode(object.node);
    return measurement.getValue() <= rounding * largestExtent(object);
}

/// Where bounding boxes leave no room for a nearer pair, as with triangles that shrank to a point, the search ends
/// without points; both then stay at the origin, and the distance reads 0.
bool isFound(const ObjectObjectMeasurement& measurement, const MeasurementInput& input) {
    const bool isAtOrigin = isZero(fromOrigin(measurement.getPoint1())) && isZero(fromOrigin(measurement.getPoint2()));
    return !isAtOrigin || (containsOrigin(*input.nodes[0]) && containsOrigin(*input.nodes[1]));
}

Report objectObjectReport(const ObjectObjectMeasurement& measurement, const MeasurementInput& input) {
    if (!isFound(measurement, input)) {
        throw Failure("no nearest points found between '" + input.getNodeName(0) + "' and '" + input.getNodeName(1) +
                      "': triangles without an area are in the way");
    }
    return distanceReport(measurement, input);
}

Report circleReport(const CircleMeasurement& measurement, const MeasurementInput& input) {
    const float radius = measurement.getValue();
    // Points on one line give the zero vector as normal, points nearly on one an infinite radius.
    if (isZero(measurement.getNormal()) || !std::isfinite(radius)) {
        throw Failure("no circle: the points coincide or lie on one line");
    }
    constexpr float pi = 3.14159274f;
    Report report;
    report.numbers = {{"radius", "value", radius},
                      {"diameter", "diameter", 2.0f * radius},
                      {"circumference", "circumference", 2.0f * pi * radius}};
    report.vectors = {{"point 1", "point1", fromOrigin(measurement.getPoint1()), input.getNodeName(0)},
                      {"point 2", "point2", fromOrigin(measurement.getPoint2()), input.getNodeName(1)},
                      {"point 3", "point3", fromOrigin(measurement.getPoint3()), input.getNodeName(2)},
                      {"center", "center", fromOrigin(measurement.getCenter()), ""},
                      {"normal", "normal", measurement.getNormal(), ""}};
    return report;
}

template <typename SampledMeasurement> Report statisticsReport(const SampledMeasurement& measurement) {
    Report report;
    report.numbers = {{"average", "value", measurement.getAverageDistance()},
                      {"deviation", "deviation", measurement.getDeviation()},
                      {"minimum", "minimum", measurement.getMinimumDistance()},
                      {"maximum", "maximum", measurement.getMaximumDistance()}};
    report.sampleCount = measurement.getPointPairs().size();
    return report;
}

Report gapReport(const GapMeasurement& measurement, const MeasurementInput& input) {
    if (measurement.getPointPairs().empty()) {
        throw Failure("no samples: no plane across the track cuts '" + input.getNodeName(0) + "'");
    }
    Report report = statisticsReport(measurement);
    report.vectors = {{"from", "from", fromOrigin(measurement.getPoint1()), input.getNodeName(0)},
                      {"to", "to", fromOrigin(measurement.getPoint2()), input.getNodeName(1)}};
    return report;
}

Report lineObjectReport(const LineObjectMeasurement& measurement, const MeasurementInput& input) {
    if (measurement.getPointPairs().empty()) throw Failure("no samples along '" + input.getNodeName(0) + "'");
    Report report = statisticsReport(measurement);
    report.vectors = {{"line", "line", fromOrigin(measurement.getLinePoint()), input.getNodeName(0)}};
    return report;
}

Report reportOfKind(const measurement::Measurement& measurement, const MeasurementInput& input) {
    switch (input.kind) {
    case Command::pointPoint:
        return distanceReport(dynamic_cast<const PointPointMeasurement&>(measurement), input);
    case Command::pointObject:
        return pointObjectReport(dynamic_cast<const PointObjectMeasurement&>(measurement), input);
    case Command::objectObject:
        return objectObjectReport(dynamic_cast<const ObjectObjectMeasurement&>(measurement), input);
    case Command::circle:
        return circleReport(dynamic_cast<const CircleMeasurement&>(measurement), input);
    case Command::gap:
        return gapReport(dynamic_cast<const GapMeasurement&>(measurement), input);
    case Command::lineObject:
        return lineObjectReport(dynamic_cast<const LineObjectMeasurement&>(measurement), input);
    case Command::list:
    case Command::load:
    case Command::run:
        break;
    }
    throw Failure("nothing to measure");
}

} // namespace

Report measurementReport(const measurement::Measurement& measurement, const MeasurementInput& input) {
    Report report = reportOfKind(measurement, input);
    if (!std::isfinite(report.numbers.front().number)) throw Failure("the result is not a number");
    report.kind = commandName(input.kind);
    report.name = singleSpaced(measurement.getName());
    return report;
}

std::string singleSpaced(const std::string& text) {
    std::string result = text;
    const auto areBlanks = [](char first, char second) { return first == ' ' && second == ' '; };
    result.erase(std::unique(result.begin(), result.end(), areBlanks), result.end());
    return result;
}

} // namespace tesk::measure
