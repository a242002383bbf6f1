#include <apps/measure/Application.h>

#include <apps/measure/Failure.h>
#include <apps/measure/FileReplacement.h>
#include <apps/measure/JsonReport.h>
#include <apps/measure/MeasurementSession.h>
#include <apps/measure/Options.h>
#include <apps/measure/Picture.h>
#include <apps/measure/Progress.h>
#include <apps/measure/SceneLoading.h>
#include <apps/measure/TerminalText.h>
#include <apps/measure/TextReport.h>

#include <OpenSG/OSGBaseFunctions.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <new>
#include <optional>
#include <system_error>

namespace tesk::measure {

namespace {

void tell(const std::string& text) { std::fputs(("tesk-measure: " + printable(text) + "\n").c_str(), stderr); }

/// The first few; thousands of equal names are no news.
void tellSome(const std::vector<std::string>& notes) {
    constexpr std::size_t most = 10;
    for (std::size_t i = 0; i < std::min(most, notes.size()); ++i) tell(notes[i]);
    if (notes.size() > most) tell("and " + std::to_string(notes.size() - most) + " more like these");
}

void startSceneGraph() {
    char programName[] = "tesk-measure";
    char* arguments[] = {programName, nullptr};
    osg::osgInit(1, arguments);
}

/// What is certain to fail fails before the work, not after it.
void checkFiles(const Options& options) {
    for (const std::string& file : {options.saveFile, options.sampleFile, options.picture.file}) {
        if (file.empty()) continue;
        checkReplaceable(file);
        for (const std::string& scene : options.scenes) {
            std::error_code ignored;
            if (std::filesystem::equivalent(file, scene, ignored)) throw Failure(file + " is a scene file");
        }
    }
}

/// Everything that went wrong without ending the command, one line each.
std::vector<std::string> problems(const MeasurementSession& session, const Options& options) {
    std::vector<std::string> lines;
    for (const Report& report : session.getReports()) {
        if (!report.problem.empty())
            lines.push_back(options.document + ": " + report.getTitle() + ": " + report.problem);
    }
    for (const std::string& name : session.getUnknownNames())
        lines.push_back("no measurement is called '" + name + "'");
    if (!options.saveFile.empty() && session.isAnyNodeMissing())
        lines.push_back(options.saveFile + " is not written: it would lose the names of missing nodes");
    return lines;
}

void measureAndSave(MeasurementSession& session) {
    {
        const Progress progress("measuring " + session.getName());
        session.measure();
    }
    const Progress progress("saving");
    session.saveSamples();
    session.saveMeasurements();
}

/// After the numbers, which are shown whatever becomes of the picture. Returns the line about a failure.
std::optional<std::string> draw(const Options& options, const MeasurementSession& session,
                                const SceneCatalogue& catalogue) {
    if (options.picture.file.empty()) return std::nullopt;
    const Progress progress("drawing");
    try {
        drawPicture(options.picture, session, catalogue);
    } catch (const Failure& failure) {
        return failure.what();
    }
    return std::nullopt;
}

int measure(const Options& options, const SavedDocument* document, const SceneCatalogue& catalogue,
            OutputGuard& output) {
    MeasurementSession session(options, document, catalogue);
    measureAndSave(session);
    if (document != nullptr)
        output.write(options.json ? jsonReports(session.getReports())
                                  : textReports(session.getReports(), options.precision));
    else
        output.write(options.json ? jsonReport(session.getReports().front())
                                  : textReport(session.getReports().front(), options.precision));
    std::vector<std::string> lines = problems(session, options);
    if (const auto failure = draw(options, session, catalogue)) lines.push_back(*failure);
    for (const std::string& line : lines) tell(line);
    if (!lines.empty()) return exitFailure;
    return session.areAllExpectationsMet() ? exitDone : exitExpectationNotMet;
}

int carryOut(const Options& options, OutputGuard& output) {
    startSceneGraph();
    checkFiles(options);
    std::optional<SavedDocument> document;
    if (!options.document.empty()) document.emplace(options.document);
    LoadedScenes loaded = loadScenes(options.scenes);
    const SceneCatalogue catalogue(std::move(loaded.files));
    if (document) tellSome(document->getNotes());
    tellSome(loaded.notes);
    tellSome(catalogue.getRenamings());
    if (options.command != Command::list) return measure(options, document ? &*document : nullptr, catalogue, output);
    output.write(options.json ? jsonList(catalogue) : textList(catalogue, options.precision));
    return exitDone;
}

int runOrThrow(const std::vector<std::string>& arguments, OutputGuard& output) {
    const ParsedOptions parsed = parseOptions(arguments);
    if (parsed.options) return carryOut(*parsed.options, output);
    if (parsed.exitStatus == exitDone)
        output.write(parsed.text);
    else
        tell(parsed.text);
    return parsed.exitStatus;
}

} // namespace

int runApplication(const std::vector<std::string>& arguments, OutputGuard& output) {
    try {
        return runOrThrow(arguments, output);
    } catch (const std::bad_alloc&) {
        tell("out of memory");
    } catch (const std::exception& failure) {
        tell(failure.what());
    }
    return exitFailure;
}

} // namespace tesk::measure
