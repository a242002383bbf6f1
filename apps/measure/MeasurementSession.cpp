#include <apps/measure/MeasurementSession.h>

#include <apps/measure/Failure.h>
#include <apps/measure/MeasurementReport.h>
#include <apps/measure/SampleFile.h>

#include <measurement/model/Measurement.h>

#include <algorithm>
#include <set>

namespace tesk::measure {

MeasurementSession::MeasurementSession(const Options& sessionOptions, const SavedDocument* savedDocument,
                                       const SceneCatalogue& sceneCatalogue)
    : options(sessionOptions), document(savedDocument), catalogue(sceneCatalogue) {
    if (document != nullptr) {
        for (const SavedMeasurement& saved : document->getMeasurements()) savedInputs.push_back(findNodes(saved));
    }
    if (options.command != Command::load && options.command != Command::run) command.emplace(options, catalogue);
    checkSampleCounts();
}

MeasurementInput MeasurementSession::findNodes(const SavedMeasurement& saved) const {
    MeasurementInput input;
    input.kind = saved.kind;
    input.points = saved.points;
    input.step = saved.step;
    for (const std::string& name : saved.nodes) input.nodes.push_back(catalogue.findNode(name));
    return input;
}

std::string MeasurementSession::missingNodes(std::size_t index) const {
    std::set<std::string> missing;
    for (const std::string& name : document->getMeasurements()[index].nodes) {
        if (!name.empty() && catalogue.findNode(name) == nullptr) missing.insert(name);
    }
    std::string names;
    for (const std::string& name : missing) names += (names.empty() ? "'" : ", '") + name + "'";
    return names;
}

void MeasurementSession::checkSampleCounts() const {
    double count = command ? countSamples(command->getInput()) : 0.0;
    for (const MeasurementInput& input : savedInputs) count += countSamples(input);
    checkSampleCount(count);
    if (!options.saveFile.empty()) checkSavedSampleCount(count);
}

std::string MeasurementSession::getName() const { return command ? command->getName() : document->getPath(); }

void MeasurementSession::measure() {
    if (document != nullptr) {
        document->load(manager);
        for (const measurement::Measurement* measurement : manager.getMeasurements())
            reports.push_back(savedReport(reports.size(), *measurement));
    }
    if (command) reports.push_back(measurementReport(command->measure(manager), command->getInput()));
    distributeExpectations();
}

std::vector<SessionMeasurement> MeasurementSession::getMeasurements() const {
    std::vector<SessionMeasurement> measured;
    std::size_t index = 0;
    for (const measurement::Measurement* measurement : manager.getMeasurements()) {
        const Report& report = reports[index];
        const MeasurementInput& input = index < savedInputs.size() ? savedInputs[index] : command->getInput();
        if (!report.numbers.empty() && report.problem.empty()) measured.push_back({*measurement, input, report});
        ++index;
    }
    return measured;
}

Report MeasurementSession::savedReport(std::size_t index, const measurement::Measurement& measurement) const {
    const MeasurementInput& input = savedInputs[index];
    const std::string missing = missingNodes(index);
    Report report;
    try {
        checkInput(input, catalogue);
        report = measurementReport(measurement, input);
    } catch (const Failure& failure) {
        report.kind = commandName(input.kind);
        report.name = singleSpaced(measurement.getName());
        report.problem = failure.what();
    }
    if (!missing.empty()) report.problem = "the scene lacks " + missing;
    return report;
}

void MeasurementSession::distributeExpectations() {
    if (command) reports.back().expectations = options.expectations;
    for (const NamedExpectation& named : options.namedExpectations) {
        const std::string name = singleSpaced(named.name);
        bool isKnown = false;
        for (Report& report : reports) {
            if (name != report.name && name != report.getTitle()) continue;
            report.expectations.push_back(named.expectation);
            isKnown = true;
        }
        if (!isKnown) unknownNames.push_back(name);
    }
}

bool MeasurementSession::areAllExpectationsMet() const {
    return std::all_of(reports.begin(), reports.end(), [](const Report& report) {
        return std::all_of(report.expectations.begin(), report.expectations.end(),
                           [&](const Expectation& expectation) { return report.isMet(expectation); });
    });
}

bool MeasurementSession::isAnyNodeMissing() const {
    for (std::size_t i = 0; i < savedInputs.size(); ++i) {
        if (!missingNodes(i).empty()) return true;
    }
    return false;
}

void MeasurementSession::saveMeasurements() const {
    if (!options.saveFile.empty() && !isAnyNodeMissing()) saveDocument(options.saveFile, manager);
}

void MeasurementSession::saveSamples() const {
    if (options.sampleFile.empty()) return;
    if (const auto* samples = samplesOf(*manager.getMeasurements().back())) writeSamples(options.sampleFile, *samples);
}

} // namespace tesk::measure
