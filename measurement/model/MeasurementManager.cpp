#include <measurement/model/MeasurementManager.h>

#include <measurement/model/CircleMeasurement.h>
#include <measurement/model/ObjectObjectMeasurement.h>
#include <measurement/model/PointObjectMeasurement.h>
#include <measurement/model/PointPointMeasurement.h>
#include <measurement/model/detail/GroupNode.h>
#include <measurement/section/GapMeasurement.h>
#include <measurement/section/LineObjectMeasurement.h>
#include <measurement/visualisation/MeasurementVisualisation.h>

#include <algorithm>

namespace tesk::measurement {

namespace {

template <class Element> void eraseFirst(std::list<Element>& list, Element element) {
    const auto place = std::find(list.begin(), list.end(), element);
    if (place != list.end()) list.erase(place);
}

} // namespace

MeasurementManager* MeasurementManager::getInstance() {
    static MeasurementManager* const instance = new MeasurementManager;
    return instance;
}

MeasurementManager::MeasurementManager() = default;

MeasurementManager::~MeasurementManager() {
    setVisualisationRoot(osg::NullFC);
    while (!visualisations.empty()) removeVisualisation(visualisations.front());
    while (!measurements.empty()) removeMeasurement(measurements.front());
}

template <class Kind, class... Nodes> Kind* MeasurementManager::create(const Nodes&... nodes) {
    Kind* const measurement = new Kind(this, nodes...);
    measurements.push_back(measurement);
    for (MeasurementVisualisation* visualisation : visualisations) visualisation->addMeasurement(measurement);
    return measurement;
}

ObjectObjectMeasurement* MeasurementManager::createObjectObjectMeasurement() {
    return create<ObjectObjectMeasurement>();
}

ObjectObjectMeasurement* MeasurementManager::createObjectObjectMeasurement(const osg::NodePtr& node1,
                                                                           const osg::NodePtr& node2) {
    return create<ObjectObjectMeasurement>(node1, node2);
}

GapMeasurement* MeasurementManager::createGapMeasurement() { return create<GapMeasurement>(); }

GapMeasurement* MeasurementManager::createGapMeasurement(const osg::NodePtr& node1, const osg::NodePtr& node2) {
    return create<GapMeasurement>(node1, node2);
}

LineObjectMeasurement* MeasurementManager::createLineObjectMeasurement() { return create<LineObjectMeasurement>(); }

CircleMeasurement* MeasurementManager::createCircleMeasurement() { return create<CircleMeasurement>(); }

PointObjectMeasurement* MeasurementManager::createPointObjectMeasurement() { return create<PointObjectMeasurement>(); }

PointPointMeasurement* MeasurementManager::createPointPointMeasurement() { return create<PointPointMeasurement>(); }

void MeasurementManager::removeMeasurement(Measurement* measurement) {
    eraseFirst(measurements, measurement);
    notifyOfRemoval(measurement);
    delete measurement;
}

void MeasurementManager::removeAllMeasurements() {
    for (Measurement* measurement : measurements) {
        notifyOfRemoval(measurement);
        delete measurement;
    }
    measurements.clear();
}

void MeasurementManager::addVisualisation(MeasurementVisualisation* visualisation) {
    createVisualisationGroup();
    for (Measurement* measurement : measurements) visualisation->addMeasurement(measurement);
    visualisations.push_back(visualisation);
    const osg::NodePtr node = visualisation->getVisualisation();
    if (node != osg::NullFC) detail::addChild(visualisationGroup, node, osg::Node::ChildrenFieldMask);
}

void MeasurementManager::removeVisualisation(MeasurementVisualisation* visualisation) {
    createVisualisationGroup();
    const osg::NodePtr node = visualisation->getVisualisation();
    if (node != osg::NullFC) detail::removeChild(visualisationGroup, node, osg::Node::ChildrenFieldMask);
    for (Measurement* measurement : measurements) visualisation->removeMeasurement(measurement);
    eraseFirst(visualisations, visualisation);
}

void MeasurementManager::setVisualisationRoot(const osg::NodePtr& node) {
    createVisualisationGroup();
    if (visualisationRoot == node) return;
    if (visualisationRoot != osg::NullFC)
        detail::removeChild(visualisationRoot, visualisationGroup, osg::Node::ChildrenFieldMask);
    detail::hold(visualisationRoot, node);
    if (node != osg::NullFC) detail::addChild(node, visualisationGroup, osg::Node::ChildrenFieldMask);
}

void MeasurementManager::createVisualisationGroup() {
    if (visualisationGroup == osg::NullFC) visualisationGroup = detail::createGroupNode();
}

void MeasurementManager::enableVisualisations(bool enabled) {
    createVisualisationGroup();
    detail::setShown(visualisationGroup, enabled);
}

void MeasurementManager::updateVisualisations() {
    for (MeasurementVisualisation* visualisation : visualisations)
        for (Measurement* measurement : measurements) visualisation->updateMeasurement(measurement);
}

void MeasurementManager::updateVisualisations(Measurement* measurement) {
    for (MeasurementVisualisation* visualisation : visualisations) visualisation->updateMeasurement(measurement);
}

void MeasurementManager::notifyOfRemoval(Measurement* measurement) {
    for (MeasurementVisualisation* visualisation : visualisations) visualisation->removeMeasurement(measurement);
}

} // namespace tesk::measurement
