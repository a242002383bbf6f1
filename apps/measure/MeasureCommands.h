#pragma once

#include <apps/measure/MeasurementInput.h>

namespace tesk::measurement {
class Measurement;
class MeasurementManager;
} // namespace tesk::measurement

namespace tesk::measure {

/// A measurement whose points and nodes are found, ready to be computed.
///
/// Choosing the nodes costs nothing; measure() takes as long as the library takes.
class MeasureCommand {
public:
    /// Throws Failure when a node is unknown or ambiguous, or cannot be measured; see checkInput().
    MeasureCommand(const Options& options, const SceneCatalogue& catalogue);

    const MeasurementInput& getInput() const { return input; }
    /// What is measured, such as `vessel to stirrer`; empty when no node is.
    std::string getName() const;
    /// Has the manager create the measurement, updated and named.
    const measurement::Measurement& measure(measurement::MeasurementManager& manager) const;

private:
    void choosePlaces(const Options& options, const SceneCatalogue& catalogue);
    void chooseObjects(const Options& options, const SceneCatalogue& catalogue);
    const measurement::Measurement& measurePointPoint(measurement::MeasurementManager& manager) const;
    const measurement::Measurement& measurePointObject(measurement::MeasurementManager& manager) const;
    const measurement::Measurement& measureCircle(measurement::MeasurementManager& manager) const;
    const measurement::Measurement& measureGap(measurement::MeasurementManager& manager) const;
    const measurement::Measurement& measureLineObject(measurement::MeasurementManager& manager) const;

    MeasurementInput input;
    /// As the library composes names, with "point" for a point that lies on no node.
    std::string name;
};

} // namespace tesk::measure
