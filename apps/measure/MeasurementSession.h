#pragma once

#include <apps/measure/MeasureCommands.h>
#include <apps/measure/Report.h>
#include <apps/measure/SavedDocument.h>

#include <measurement/model/MeasurementManager.h>

#include <optional>
#include <string>
#include <vector>

namespace tesk::measure {

/// A measurement with what it was made of and what came out.
struct SessionMeasurement {
    const measurement::Measurement& measurement;
    const MeasurementInput& input;
    const Report& report;
};

/// All that one command line measures: what a document has saved, then the command's own measurement.
///
/// A saved measurement that has no value in this scene is reported with its problem; the command's own fails.
class MeasurementSession {
public:
    /// Finds the nodes. The document may be null; the catalogue has to outlive the session. Throws Failure when the
    /// command's nodes cannot be measured, and when there would be too many samples to measure or save.
    MeasurementSession(const Options& options, const SavedDocument* document, const SceneCatalogue& catalogue);

    /// Once. Throws Failure when the command's own measurement has no value.
    void measure();

    /// What is being measured, for people.
    std::string getName() const;
    const std::vector<Report>& getReports() const { return reports; }
    /// Those that have a value, with references into the session.
    std::vector<SessionMeasurement> getMeasurements() const;
    /// Names of expectations that no measurement has.
    const std::vector<std::string>& getUnknownNames() const { return unknownNames; }
    bool areAllExpectationsMet() const;
    /// Whether the document names a node that the scene lacks.
    bool isAnyNodeMissing() const;

    /// Writes the samples of the command's own measurement if the options ask for it. Throws Failure.
    void saveSamples() const;
    /// Saves all measurements if the options ask for it; not while a node is missing, whose name a measurement does not
    /// know, so that it could never be made again. Throws Failure.
    void saveMeasurements() const;

private:
    MeasurementInput findNodes(const SavedMeasurement& saved) const;
    void checkSampleCounts() const;
    /// Those of a saved measurement that the scene lacks, as `'bolt', 'nut'`.
    std::string missingNodes(std::size_t index) const;
    Report savedReport(std::size_t index, const measurement::Measurement& measurement) const;
    void distributeExpectations();

    const Options& options;
    const SavedDocument* document;
    const SceneCatalogue& catalogue;
    std::vector<MeasurementInput> savedInputs;
    std::optional<MeasureCommand> command;
    measurement::MeasurementManager manager;
    std::vector<Report> reports;
    std::vector<std::string> unknownNames;
};

} // namespace tesk::measure
