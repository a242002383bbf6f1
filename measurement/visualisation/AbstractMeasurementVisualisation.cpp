#include <measurement/visualisation/AbstractMeasurementVisualisation.h>

#include <measurement/model/detail/GroupNode.h>
#include <platform/tkNodeUtils.h>

namespace tesk::measurement {

AbstractMeasurementVisualisation::AbstractMeasurementVisualisation() : root(detail::createGroupNode()) {}

AbstractMeasurementVisualisation::~AbstractMeasurementVisualisation() = default;

void AbstractMeasurementVisualisation::setVisible(bool visible) { detail::setShown(root, visible); }

bool AbstractMeasurementVisualisation::isVisible() const { return detail::isShown(root); }

void AbstractMeasurementVisualisation::addMeasurement(const Measurement* measurement) {
    const osg::NodePtr node = createVisualisation(measurement);
    if (node == osg::NullFC) return;
    tkNodeUtils::setIsAuxiliaryNode(node, true);
    detail::addChild(root, node, osg::FieldBits::AllFields);
    visualisations[measurement] = node;
}

void AbstractMeasurementVisualisation::removeMeasurement(const Measurement* measurement) {
    const auto entry = visualisations.find(measurement);
    if (entry == visualisations.end()) return;
    // The entry holds the subtree until it is erased.
    const osg::NodePtr node = entry->second;
    removeVisualisation(measurement, node);
    detail::removeChild(root, node, osg::FieldBits::AllFields);
    tkNodeUtils::destroySubTree(node);
    visualisations.erase(entry);
}

void AbstractMeasurementVisualisation::updateMeasurement(const Measurement* measurement) {
    const auto entry = visualisations.find(measurement);
    if (entry != visualisations.end()) updateVisualisation(measurement, entry->second);
}

void AbstractMeasurementVisualisation::setPrecision(int digits) {
    precision = digits;
    for (const auto& [measurement, node] : visualisations) updateVisualisation(measurement, node);
}

} // namespace tesk::measurement
