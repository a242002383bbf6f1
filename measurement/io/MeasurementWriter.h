#pragma once

#include <measurement/Export.h>

class QIODevice;

namespace tesk::measurement {

class MeasurementManager;

/// Saves measurements, in a format that the host need not know.
class TESK_MEASUREMENT_EXPORT MeasurementWriter {
public:
    /// Writes all of the manager's measurements, in their order. The device is open for writing, and stays open;
    /// whether it took everything, its caller finds out.
    virtual void writeMeasurements(QIODevice* device, const MeasurementManager* manager) = 0;

protected:
    ~MeasurementWriter() = default;
};

} // namespace tesk::measurement
