#include <measurement/visualisation/SingleMeasurementVisualisation.h>

#include <measurement/model/detail/GroupNode.h>

namespace tesk::measurement {

SingleMeasurementVisualisation::SingleMeasurementVisualisation() : root(detail::createGroupNode()) {}

SingleMeasurementVisualisation::~SingleMeasurementVisualisation() = default;

void SingleMeasurementVisualisation::setVisible(bool visible) { detail::setShown(root, visible); }

bool SingleMeasurementVisualisation::isVisible() const { return detail::isShown(root); }

void SingleMeasurementVisualisation::addMeasurement(const Measurement* measurement) {
    measurements.insert(measurement);
}

void SingleMeasurementVisualisation::removeMeasurement(const Measurement* measurement) {
    if (measurement == activeMeasurement) {
        removeActiveVisualisation();
        activeMeasurement = nullptr;
    }
    measurements.erase(measurement);
}

void SingleMeasurementVisualisation::updateMeasurement(const Measurement* measurement) {
    if (measurement == activeMeasurement && activeVisualisation != osg::NullFC)
        updateVisualisation(measurement, activeVisualisation);
}

void SingleMeasurementVisualisation::setActiveMeasurement(const Measurement* measurement) {
    if (measurement == activeMeasurement) return;
    removeActiveVisualisation();
    activeMeasurement = measurement;
    if (measurement == nullptr) return;
    activeVisualisation = createVisualisation(measurement);
    if (activeVisualisation != osg::NullFC) detail::addChild(root, activeVisualisation, osg::FieldBits::AllFields);
}

const Measurement* SingleMeasurementVisualisation::getActiveMeasurement() const { return activeMeasurement; }

void SingleMeasurementVisualisation::setPrecision(int digits) {
    precision = digits;
    if (activeVisualisation != osg::NullFC) updateVisualisation(activeMeasurement, activeVisualisation);
}

void SingleMeasurementVisualisation::removeActiveVisualisation() {
    if (activeVisualisation == osg::NullFC) return;
    removeVisualisation(activeMeasurement, activeVisualisation);
    detail::removeChild(root, activeVisualisation, osg::FieldBits::AllFields);
    activeVisualisation = osg::NullFC;
}

} // namespace tesk::measurement
