#include <apps/measure/Application.h>

#include <apps/measure/Failure.h>
#include <apps/measure/JsonReport.h>
#include <apps/measure/MeasureCommands.h>
#include <apps/measure/Options.h>
#include <apps/measure/Progress.h>
#include <apps/measure/SceneLoading.h>
#include <apps/measure/TerminalText.h>
#include <apps/measure/TextReport.h>

#include <OpenSG/OSGBaseFunctions.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <new>

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

Report measureWithProgress(const MeasureCommand& command) {
    const Progress progress("measuring " + command.getName());
    return command.measure();
}

int measure(const Options& options, const SceneCatalogue& catalogue, OutputGuard& output) {
    const Report report = measureWithProgress(MeasureCommand(options, catalogue));
    output.write(options.json ? jsonReport(report) : textReport(report, options.precision));
    const bool areAllMet = std::all_of(report.expectations.begin(), report.expectations.end(),
                                       [&](const Expectation& expectation) { return report.isMet(expectation); });
    return areAllMet ? exitDone : exitExpectationNotMet;
}

int carryOut(const Options& options, OutputGuard& output) {
    startSceneGraph();
    LoadedScenes loaded = loadScenes(options.scenes);
    const SceneCatalogue catalogue(std::move(loaded.files));
    tellSome(loaded.notes);
    tellSome(catalogue.getRenamings());
    if (options.command != Command::list) return measure(options, catalogue, output);
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
