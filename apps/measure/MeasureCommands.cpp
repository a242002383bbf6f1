#include <apps/measure/MeasureCommands.h>

#include <apps/measure/Failure.h>
#include <apps/measure/MeasurementReport.h>
#include <apps/measure/NodeSelection.h>

#include <measurement/model/CircleMeasurement.h>
#include <measurement/model/MeasurementManager.h>
#include <measurement/model/ObjectObjectMeasurement.h>
#include <measurement/model/PointObjectMeasurement.h>
#include <measurement/model/PointPointMeasurement.h>
#include <measurement/section/GapMeasurement.h>
#include <measurement/section/LineObjectMeasurement.h>

#include <algorithm>

namespace tesk::measure {

using measurement::Measurement;
using measurement::MeasurementManager;

namespace {

std::string composeName(const std::vector<const CatalogueNode*>& nodes) {
    std::string name;
    for (const CatalogueNode* node : nodes) {
        name += (name.empty() ? "" : "  to  ") + (node != nullptr ? node->name : "point");
    }
    const bool isAnyNamed = std::any_of(nodes.begin(), nodes.end(), [](const CatalogueNode* node) { return node; });
    return isAnyNamed ? name : std::string();
}

} // namespace

MeasureCommand::MeasureCommand(const Options& options, const SceneCatalogue& catalogue) {
    input.kind = options.command;
    input.step = options.step;
    choosePlaces(options, catalogue);
    chooseObjects(options, catalogue);
    name = composeName(input.nodes);
    if (input.kind == Command::pointObject && input.nodes[0] == nullptr) input.nodes[0] = input.nodes[1];
    checkInput(input, catalogue);
}

void MeasureCommand::choosePlaces(const Options& options, const SceneCatalogue& catalogue) {
    for (const auto& [node, point] : options.points) {
        input.points.push_back(point);
        input.nodes.push_back(node.empty() ? nullptr : &selectNode(catalogue, node));
    }
}

void MeasureCommand::chooseObjects(const Options& options, const SceneCatalogue& catalogue) {
    for (const std::string& node : options.nodes) input.nodes.push_back(&selectNode(catalogue, node));
    const bool mayBeFiles = input.kind == Command::pointObject || input.kind == Command::objectObject;
    if (!options.nodes.empty() || !mayBeFiles) return;
    for (std::size_t file = 0; file < catalogue.getFiles().size(); ++file) {
        input.nodes.push_back(&catalogue.getFileRoot(file));
    }
}

std::string MeasureCommand::getName() const { return singleSpaced(name); }

const Measurement& MeasureCommand::measure(MeasurementManager& manager) const {
    switch (input.kind) {
    case Command::pointPoint:
        return measurePointPoint(manager);
    case Command::pointObject:
        return measurePointObject(manager);
    case Command::objectObject:
        return *manager.createObjectObjectMeasurement(input.getNode(0), input.getNode(1));
    case Command::circle:
        return measureCircle(manager);
    case Command::gap:
        return measureGap(manager);
    case Command::lineObject:
        return measureLineObject(manager);
    case Command::list:
    case Command::load:
    case Command::run:
        break;
    }
    throw Failure("nothing to measure");
}

const Measurement& MeasureCommand::measurePointPoint(MeasurementManager& manager) const {
    auto& measurement = *manager.createPointPointMeasurement();
    measurement.setPoint1(input.getNode(0), input.points[0]);
    measurement.setPoint2(input.getNode(1), input.points[1]);
    measurement.setName(name);
    return measurement;
}

const Measurement& MeasureCommand::measurePointObject(MeasurementManager& manager) const {
    auto& measurement = *manager.createPointObjectMeasurement();
    measurement.setPoint(input.getNode(0), input.points[0]);
    measurement.setNode(input.getNode(1));
    measurement.setName(name);
    return measurement;
}

const Measurement& MeasureCommand::measureCircle(MeasurementManager& manager) const {
    auto& measurement = *manager.createCircleMeasurement();
    measurement.setPoint1(input.getNode(0), input.points[0]);
    measurement.setPoint2(input.getNode(1), input.points[1]);
    measurement.setPoint3(input.getNode(2), input.points[2]);
    measurement.setName(name);
    return measurement;
}

const Measurement& MeasureCommand::measureGap(MeasurementManager& manager) const {
    auto& measurement = *manager.createGapMeasurement();
    measurement.setNode1(input.getNode(0), input.points[0]);
    measurement.setNode2(input.getNode(1), input.points[1]);
    measurement.setSampleDistance(input.step);
    measurement.update();
    return measurement;
}

const Measurement& MeasureCommand::measureLineObject(MeasurementManager& manager) const {
    auto& measurement = *manager.createLineObjectMeasurement();
    measurement.setLine(input.getNode(0), input.points[0]);
    measurement.setNode(input.getNode(1));
    measurement.setSampleDistance(input.step);
    measurement.update();
    return measurement;
}

} // namespace tesk::measure
