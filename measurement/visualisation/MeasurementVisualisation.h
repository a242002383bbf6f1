#pragma once

#include <measurement/Export.h>

#include <OpenSG/OSGNode.h>

namespace tesk::measurement {

class Measurement;

/// Shows measurements in the scene, told of them by a MeasurementManager.
///
/// A visualisation belongs to its creator, who destroys it through its concrete type after removing it from the
/// manager. It knows a measurement by its address, from addMeasurement() to removeMeasurement(); calls for measurements
/// that it does not know are ignored.
class TESK_MEASUREMENT_EXPORT MeasurementVisualisation {
public:
    // The virtual operations stand in the order that the interface fixes.
    virtual void setVisible(bool visible) = 0;
    virtual bool isVisible() const = 0;
    /// The node below which everything is shown, the same as long as the visualisation lives.
    virtual osg::NodePtr getVisualisation() = 0;
    virtual void addMeasurement(const Measurement* measurement) = 0;
    virtual void removeMeasurement(const Measurement* measurement) = 0;
    virtual void updateMeasurement(const Measurement* measurement) = 0;

protected:
    ~MeasurementVisualisation() = default;
};

} // namespace tesk::measurement
