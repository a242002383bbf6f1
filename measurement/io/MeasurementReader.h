#pragma once

#include <measurement/Export.h>

class QIODevice;

namespace tesk::measurement {

class MeasurementManager;

/// Loads measurements, in a format that the host need not know.
class TESK_MEASUREMENT_EXPORT MeasurementReader {
public:
    /// Adds the device's measurements to the manager's. The device is open for reading, and stays open.
    virtual void readMeasurements(QIODevice* device, MeasurementManager* manager) = 0;

protected:
    ~MeasurementReader() = default;
};

} // namespace tesk::measurement
