#include <apps/measure/MeasureCommands.h>

#include <apps/measure/Failure.h>
#include <apps/measure/NodeListing.h>
#include <apps/measure/NodeSelection.h>
#include <apps/measure/Numbers.h>

#include <measurement/model/CircleMeasurement.h>
#include <measurement/model/MeasurementManager.h>
#include <measurement/model/ObjectObjectMeasurement.h>
#include <measurement/model/PointObjectMeasurement.h>
#include <measurement/model/PointPointMeasurement.h>

#include <algorithm>
#include <cmath>

namespace tesk::measure {

namespace {

using measurement::MeasurementManager;

osg::Vec3f fromOrigin(const osg::Pnt3f& point) { return {point[0], point[1], point[2]}; }

/// What every straight distance has: its length, both ends and the vector from the second to the first.
template <typename DistanceMeasurement>
Report distanceReport(const DistanceMeasurement& measurement, const std::string& node1, const std::string& node2) {
    Report report;
    report.numbers = {{"distance", "value", measurement.getValue()}};
    report.vectors = {{"point 1", "point1", fromOrigin(measurement.getPoint1()), node1},
                      {"point 2", "point2", fromOrigin(measurement.getPoint2()), node2},
                      {"Δ", "delta", measurement.getVector(), ""}};
    return report;
}

/// Exactly zero: the comparison of two vectors allows for 1e-6, more than the normal of a small circle.
bool isZero(const osg::Vec3f& vector) { return vector[0] == 0.0f && vector[1] == 0.0f && vector[2] == 0.0f; }

void checkRange(const CatalogueNode& object) {
    const auto bounds = worldBounds(object.node);
    if (!bounds) throw Failure("'" + object.name + "' is empty");
    for (osg::UInt32 axis = 0; axis < 3; ++axis) {
        const bool isInRange = bounds->lower[axis] >= -largestCoordinate && bounds->upper[axis] <= largestCoordinate;
        // Also for NaN, which is in no range.
        if (!isInRange) throw Failure("'" + object.name + "' reaches beyond 1e18, too far for single precision");
    }
}

/// Without such a check an object without triangles would be measured as the distance 0.
void checkTriangles(const CatalogueNode& object) {
    if (object.content.triangles == 0) throw Failure("'" + object.name + "' has no triangles");
    if (object.content.properTriangles == 0) throw Failure("'" + object.name + "' has no triangles with an area");
    checkRange(object);
}

void checkTrianglesOrLines(const CatalogueNode& object) {
    if (object.content.lines == 0) return checkTriangles(object);
    if (object.content.properTriangles + object.content.properLines == 0) {
        throw Failure("'" + object.name + "' has no triangles with an area and no lines with a length");
    }
    checkRange(object);
}

float largestExtent(const CatalogueNode& object) {
    const Bounds bounds = worldBounds(object.node).value_or(Bounds{});
    const osg::Vec3f extent = bounds.upper - bounds.lower;
    return std::max({extent[0], extent[1], extent[2]});
}

bool containsOrigin(const CatalogueNode& object) {
    constexpr float rounding = 1e-5f;
    MeasurementManager manager;
    auto& measurement = *manager.createPointObjectMeasurement();
    measurement.setPoint(object.node, osg::Pnt3f(0.0f, 0.0f, 0.0f));
    measurement.setNode(object.node);
    return measurement.getValue() <= rounding * largestExtent(object);
}

/// Where bounding boxes leave no room for a nearer pair, as with triangles that shrank to a point, the search ends
/// without points; both then stay at the origin, and the distance reads 0.
bool isFound(const measurement::ObjectObjectMeasurement& measurement, const CatalogueNode& object1,
             const CatalogueNode& object2) {
    const bool isAtOrigin = isZero(fromOrigin(measurement.getPoint1())) && isZero(fromOrigin(measurement.getPoint2()));
    return !isAtOrigin || (containsOrigin(object1) && containsOrigin(object2));
}

void checkDisjoint(const SceneCatalogue& catalogue, const CatalogueNode& object1, const CatalogueNode& object2) {
    if (&object1 == &object2) throw Failure("both objects are '" + object1.name + "'");
    if (catalogue.isSameOrBelow(object1, object2)) {
        throw Failure("'" + object1.name + "' is a part of '" + object2.name + "'");
    }
    if (catalogue.isSameOrBelow(object2, object1)) checkDisjoint(catalogue, object2, object1);
}

} // namespace

osg::NodePtr MeasureCommand::Place::getNode() const { return node != nullptr ? node->node : osg::NodePtr(); }

std::string MeasureCommand::Place::getNodeName() const { return node != nullptr ? node->name : std::string(); }

MeasureCommand::MeasureCommand(const Options& options, const SceneCatalogue& catalogue)
    : command(options.command), expectations(options.expectations) {
    for (const auto& [node, point] : options.points) {
        places.push_back({point, node.empty() ? nullptr : &selectNode(catalogue, node)});
    }
    chooseObjects(options, catalogue);
    if (command == Command::pointObject) checkTrianglesOrLines(*objects[0]);
    if (command == Command::objectObject) {
        checkDisjoint(catalogue, *objects[0], *objects[1]);
        for (const CatalogueNode* object : objects) checkTriangles(*object);
    }
    name = composeName();
}

std::string MeasureCommand::composeName() const {
    std::string composed;
    bool isAnyNamed = !objects.empty();
    for (const Place& place : places) {
        composed += (composed.empty() ? "" : " to ") + (place.node != nullptr ? place.node->name : "point");
        isAnyNamed = isAnyNamed || place.node != nullptr;
    }
    for (const CatalogueNode* object : objects) composed += (composed.empty() ? "" : " to ") + object->name;
    return isAnyNamed ? composed : std::string();
}

void MeasureCommand::chooseObjects(const Options& options, const SceneCatalogue& catalogue) {
    for (const std::string& node : options.nodes) objects.push_back(&selectNode(catalogue, node));
    if (!objects.empty() || (command != Command::pointObject && command != Command::objectObject)) return;
    for (std::size_t file = 0; file < catalogue.getFiles().size(); ++file) {
        objects.push_back(&catalogue.getFileRoot(file));
    }
}

Report MeasureCommand::measure() const {
    Report report;
    switch (command) {
    case Command::list:
        break;
    case Command::pointPoint:
        report = measurePointPoint();
        break;
    case Command::pointObject:
        report = measurePointObject();
        break;
    case Command::objectObject:
        report = measureObjectObject();
        break;
    case Command::circle:
        report = measureCircle();
        break;
    }
    report.kind = commandName(command);
    report.name = name;
    report.expectations = expectations;
    return report;
}

Report MeasureCommand::measurePointPoint() const {
    MeasurementManager manager;
    auto& measurement = *manager.createPointPointMeasurement();
    measurement.setPoint1(places[0].getNode(), places[0].point);
    measurement.setPoint2(places[1].getNode(), places[1].point);
    return distanceReport(measurement, places[0].getNodeName(), places[1].getNodeName());
}

Report MeasureCommand::measurePointObject() const {
    MeasurementManager manager;
    auto& measurement = *manager.createPointObjectMeasurement();
    // The measurement stays empty unless the point lies on some node; a free point counts as lying on the object.
    const osg::NodePtr pointNode = places[0].node != nullptr ? places[0].getNode() : objects[0]->node;
    measurement.setPoint(pointNode, places[0].point);
    measurement.setNode(objects[0]->node);
    return distanceReport(measurement, places[0].getNodeName(), objects[0]->name);
}

Report MeasureCommand::measureObjectObject() const {
    MeasurementManager manager;
    const auto& measurement = *manager.createObjectObjectMeasurement(objects[0]->node, objects[1]->node);
    if (!isFound(measurement, *objects[0], *objects[1])) {
        throw Failure("no nearest points found between '" + objects[0]->name + "' and '" + objects[1]->name +
                      "': triangles without an area are in the way");
    }
    return distanceReport(measurement, objects[0]->name, objects[1]->name);
}

Report MeasureCommand::measureCircle() const {
    MeasurementManager manager;
    auto& measurement = *manager.createCircleMeasurement();
    measurement.setPoint1(places[0].getNode(), places[0].point);
    measurement.setPoint2(places[1].getNode(), places[1].point);
    measurement.setPoint3(places[2].getNode(), places[2].point);
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
    report.vectors = {{"point 1", "point1", fromOrigin(measurement.getPoint1()), places[0].getNodeName()},
                      {"point 2", "point2", fromOrigin(measurement.getPoint2()), places[1].getNodeName()},
                      {"point 3", "point3", fromOrigin(measurement.getPoint3()), places[2].getNodeName()},
                      {"center", "center", fromOrigin(measurement.getCenter()), ""},
                      {"normal", "normal", measurement.getNormal(), ""}};
    return report;
}

} // namespace tesk::measure
