#include <apps/measure/Options.h>

#include <apps/measure/Failure.h>
#include <apps/measure/HelpTexts.h>
#include <apps/measure/Numbers.h>

#include <CLI/CLI.hpp>

#include <algorithm>

namespace tesk::measure {

namespace {

PlacedPoint parsePlacedPoint(const std::string& option, const std::string& text) {
    const std::size_t at = text.rfind('@');
    const std::string coordinates = at == std::string::npos ? text : text.substr(at + 1);
    const auto point = parsePoint(coordinates);
    if (!point) throw CLI::ValidationError(option, "'" + coordinates + "' is not a point x,y,z of numbers up to 1e18");
    if (at == 0) throw CLI::ValidationError(option, "no node before '@' in '" + text + "'");
    return {at == std::string::npos ? std::string() : text.substr(0, at), *point};
}

/// The commands as CLI11 wants them, all writing to one Options.
class CommandLine {
public:
    CommandLine();
    Options parse(std::vector<std::string> arguments);
    CLI::App& getApp() { return app; }

private:
    CLI::App& addCommand(Command command, const std::string& description, const std::string& footer);
    void addNode(CLI::App& command, const std::string& name, const std::string& help);
    void addScenes(CLI::App& command, bool required);
    void addPoint(CLI::App& command, const std::string& name, std::size_t index,
                  const std::string& help = help::pointHelp);
    void addPointOnNode(CLI::App& command, const std::string& name, std::size_t index, const std::string& help);
    void addSampling(CLI::App& command);
    void addFile(CLI::App& command, const std::string& name, std::string& file, const std::string& help);
    void addSaving(CLI::App& command);
    void addPicture(CLI::App& command);
    template <typename Value, typename Parse>
    void addPictureOption(CLI::App& command, const std::string& name, Value& value, Parse parseText,
                          const std::string& form, const std::string& complaint, const std::string& help);
    void addDocuments(CLI::App& command);
    void addExpectation(CLI::App& command);
    void addNamedExpectation(CLI::App& command);
    template <typename Condition>
    void addConditions(CLI::App& command, std::vector<Condition>& conditions, const std::string& form,
                       const std::string& help);
    void addMeasuringCommands();
    void addSamplingCommands();
    void addDocumentCommands();
    void checkCommand(const std::vector<std::string>& arguments) const;
    void checkObjects() const;
    void checkOutputFiles() const;
    std::string firstNodeWithoutScene() const;

    CLI::App app{help::overview, "tesk-measure"};
    Options options;
    bool isPrecisionGiven = false;
};

CommandLine::CommandLine() {
    app.require_subcommand(1);
    app.set_version_flag("--version", "tesk-measure " TESK_VERSION, "Show the version and exit");
    app.footer(help::programFooter);
    app.get_formatter()->column_width(32);
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");

    auto& list =
        addCommand(Command::list, "Show the nodes of scenes: kind, triangles, lines, world bounds", help::listFooter);
    addScenes(list, true);

    addMeasuringCommands();
    addSamplingCommands();
    addDocumentCommands();
}

void CommandLine::addMeasuringCommands() {
    auto& pointPoint = addCommand(Command::pointPoint, "Distance between two points", help::pointPointFooter);
    addScenes(pointPoint, false);
    addPoint(pointPoint, "--point1", 0);
    addPoint(pointPoint, "--point2", 1);
    addDocuments(pointPoint);

    auto& pointObject = addCommand(Command::pointObject, "Distance from a point to the nearest point of an object",
                                   std::string(help::pointObjectFooter) + help::nodeFooter);
    addScenes(pointObject, true);
    addPoint(pointObject, "--point", 0);
    addNode(pointObject, "--node", "The object; may be left out when there is one scene file");
    addDocuments(pointObject);

    auto& objectObject = addCommand(Command::objectObject, "Least distance between two objects",
                                    std::string(help::objectObjectFooter) + help::nodeFooter);
    addScenes(objectObject, true);
    addNode(objectObject, "--node1", "The first object; both may be left out when there are two scene files");
    addNode(objectObject, "--node2", "The second object");
    addDocuments(objectObject);

    auto& circle =
        addCommand(Command::circle, "Circle through three points; its value is the radius", help::circleFooter);
    addScenes(circle, false);
    addPoint(circle, "--point1", 0);
    addPoint(circle, "--point2", 1);
    addPoint(circle, "--point3", 2);
    addDocuments(circle);
}

void CommandLine::addSamplingCommands() {
    auto& gap =
        addCommand(Command::gap, "Gap between two objects, sampled along a straight track; its value is the average",
                   std::string(help::gapFooter) + help::nodeFooter);
    addScenes(gap, true);
    addPointOnNode(gap, "--from", 0, "The first object and the start of the track");
    addPointOnNode(gap, "--to", 1, "The second object and the end of the track");
    addSampling(gap);
    addDocuments(gap);

    auto& lineObject = addCommand(Command::lineObject,
                                  "Distance of a line from an object, sampled along the line; its value is the average",
                                  std::string(help::lineObjectFooter) + help::nodeFooter);
    addScenes(lineObject, true);
    addPointOnNode(lineObject, "--line", 0, "The line and where to start");
    addNode(lineObject, "--to", "The object");
    lineObject.get_option("--to")->required();
    addSampling(lineObject);
    addDocuments(lineObject);
}

void CommandLine::addDocumentCommands() {
    const std::pair<Command, const char*> commands[] = {{Command::load, help::loadFooter},
                                                        {Command::run, help::runFooter}};
    for (const auto& [kind, footer] : commands) {
        const bool isRun = kind == Command::run;
        auto& command = addCommand(
            kind, isRun ? "Check the measurements of a saved document" : "Measure a saved document anew", footer);
        addFile(command, "DOCUMENT", options.document, "The document, as --save has written it");
        command.get_option("DOCUMENT")->required();
        command.add_option("SCENE", options.scenes, "Scene files")->type_name("");
        addSaving(command);
        if (isRun) addNamedExpectation(command);
    }
}

CLI::App& CommandLine::addCommand(Command command, const std::string& description, const std::string& footer) {
    CLI::App& added = *app.add_subcommand(commandName(command), description);
    added.callback([this, command] { options.command = command; });
    added.group("Commands");
    added.footer(footer);
    added.add_flag("--json", options.json, "Write JSON, with numbers of 9 significant digits, instead of a table");
    added.add_option("--precision", options.precision, "Significant digits of the table's numbers, 1 to 9")
        ->each([this](const std::string&) { isPrecisionGiven = true; })
        ->check(CLI::Range(1, 9).description(""))
        ->type_name("DIGITS")
        ->capture_default_str();
    return added;
}

void CommandLine::addNode(CLI::App& command, const std::string& name, const std::string& help) {
    const auto store = [this, name](const std::string& text) {
        if (text.empty()) throw CLI::ValidationError(name, "the name is empty");
        options.nodes.push_back(text);
    };
    command.add_option_function<std::string>(name, store, help)->type_name("NODE");
}

void CommandLine::addScenes(CLI::App& command, bool required) {
    const char* help = required ? "Scene files" : "Scene files, needed only for points that name a node";
    command.add_option("SCENE", options.scenes, help)->required(required)->type_name("");
}

void CommandLine::addPoint(CLI::App& command, const std::string& name, std::size_t index, const std::string& help) {
    const auto store = [this, name, index](const std::string& text) {
        options.points.resize(std::max(options.points.size(), index + 1));
        options.points[index] = parsePlacedPoint(name, text);
    };
    command.add_option_function<std::string>(name, store, help)->required()->type_name("POINT");
}

void CommandLine::addPointOnNode(CLI::App& command, const std::string& name, std::size_t index,
                                 const std::string& help) {
    addPoint(command, name, index, help + ", NODE@x,y,z in world coordinates");
    const auto hasNode = [](const std::string& text) {
        return text.find('@') != std::string::npos ? std::string() : "'" + text + "' names no node: NODE@x,y,z";
    };
    command.get_option(name)->check(CLI::Validator(hasNode, ""));
}

void CommandLine::addSampling(CLI::App& command) {
    const auto store = [this](const std::string& text) {
        const auto step = parseNumber(text);
        if (!step || *step <= 0.0f) throw CLI::ValidationError("--step", "'" + text + "' is not a positive number");
        options.step = *step;
    };
    command.add_option_function<std::string>("--step", store, "Distance between samples")
        ->required()
        ->type_name("LENGTH");
    addFile(command, "--csv", options.sampleFile, "Write the samples as comma-separated values");
}

void CommandLine::addFile(CLI::App& command, const std::string& name, std::string& file, const std::string& help) {
    const auto store = [&file, name](const std::string& text) {
        if (text.empty()) throw CLI::ValidationError(name, "the name is empty");
        file = text;
    };
    command.add_option_function<std::string>(name, store, help)->type_name(name[0] == '-' ? "FILE" : "");
}

void CommandLine::addSaving(CLI::App& command) {
    addFile(command, "--save", options.saveFile, "Save all measurements, as an XML document");
    addPicture(command);
}

void CommandLine::addPicture(CLI::App& command) {
    addFile(command, "--picture", options.picture.file, "Draw the scene with all measurements, as a PNG file");
    addPictureOption(command, "--size", options.picture.size, parsePictureSize, "WxH",
                     "not WxH with both from 1 to 8192", "Size of the picture in pixels; 1280x960 unless given");
    addPictureOption(command, "--view", options.picture.viewFrom, parseView, "VIEW",
                     "not iso, front, back, left, right, top, bottom or a vector x,y,z",
                     "From where: iso, front, back, left, right, top, bottom, or x,y,z towards the viewer");
    addPictureOption(command, "--background", options.picture.background, parseColor, "COLOR",
                     "not dark, light, black, white, gray, blue, #rrggbb or r,g,b up to 255",
                     "dark, light, black, white, gray, blue, #rrggbb, or r,g,b from 0 to 255");
    command.add_option("--active", options.picture.active, "The gap or line-object that chart and legend show")
        ->type_name("NAME")
        ->needs("--picture");
}

template <typename Value, typename Parse>
void CommandLine::addPictureOption(CLI::App& command, const std::string& name, Value& value, Parse parseText,
                                   const std::string& form, const std::string& complaint, const std::string& help) {
    const auto store = [&value, parseText, name, complaint](const std::string& text) {
        const auto parsed = parseText(text);
        if (!parsed) throw CLI::ValidationError(name, "'" + text + "' is " + complaint);
        value = *parsed;
    };
    command.add_option_function<std::string>(name, store, help)->type_name(form)->needs("--picture");
}

void CommandLine::addDocuments(CLI::App& command) {
    addFile(command, "--load", options.document, "Measure a saved document first, and show and save all");
    addSaving(command);
    addExpectation(command);
}

void CommandLine::addExpectation(CLI::App& command) {
    addConditions(command, options.expectations, "one of < <= > >= == != and a number",
                  "Exit with 3 unless the value is so, such as \">= 1.5\"; may be repeated");
}

void CommandLine::addNamedExpectation(CLI::App& command) {
    addConditions(command, options.namedExpectations, "a name, one of < <= > >= == != and a number",
                  "Exit with 3 unless a measurement is so, such as \"NAME >= 1.5\"; may be repeated");
}

template <typename Condition>
void CommandLine::addConditions(CLI::App& command, std::vector<Condition>& conditions, const std::string& form,
                                const std::string& help) {
    const auto store = [&conditions, form](const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            const auto condition = Condition::parse(text);
            if (!condition) throw CLI::ValidationError("--expect", "'" + text + "' is not " + form);
            conditions.push_back(*condition);
        }
    };
    command.add_option_function<std::vector<std::string>>("--expect", store, help)
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->type_name("CONDITION");
}

void CommandLine::checkCommand(const std::vector<std::string>& arguments) const {
    if (arguments.empty()) throw CLI::ParseError("a command is needed", exitWrongUsage);
    const std::string& first = arguments.front();
    const auto commands = app.get_subcommands([&](const CLI::App* command) { return command->check_name(first); });
    const bool isOption = !first.empty() && first[0] == '-';
    if (commands.empty() && !isOption) throw CLI::ParseError("unknown command '" + first + "'", exitWrongUsage);
}

void CommandLine::checkObjects() const {
    if (options.command == Command::pointObject && options.nodes.empty() && options.scenes.size() != 1) {
        throw CLI::ValidationError("--node", "needed to choose from several scene files");
    }
    if (options.command != Command::objectObject || options.nodes.size() == 2) return;
    if (!options.nodes.empty() || options.scenes.size() != 2) {
        throw CLI::ValidationError("--node1 and --node2", "both are needed unless there are exactly two scene files");
    }
}

void CommandLine::checkOutputFiles() const {
    const std::pair<const char*, std::string> files[] = {
        {"--save", options.saveFile}, {"--csv", options.sampleFile}, {"--picture", options.picture.file}};
    for (const auto& [name, file] : files) {
        for (const auto& [otherName, otherFile] : files) {
            if (name == otherName) break;
            if (!file.empty() && file == otherFile)
                throw CLI::ValidationError(name, "'" + file + "' is where " + otherName + " writes");
        }
    }
}

std::string CommandLine::firstNodeWithoutScene() const {
    if (!options.scenes.empty()) return {};
    for (const PlacedPoint& point : options.points) {
        if (!point.node.empty()) return point.node;
    }
    return {};
}

Options CommandLine::parse(std::vector<std::string> arguments) {
    // In the place of a command the option is the command.
    if (!arguments.empty() && arguments.front() == "--load") arguments.front() = "load";
    checkCommand(arguments);
    std::reverse(arguments.begin(), arguments.end());
    app.parse(std::move(arguments));
    checkObjects();
    checkOutputFiles();
    if (isPrecisionGiven) options.picture.digits = options.precision;
    const std::string homeless = firstNodeWithoutScene();
    if (!homeless.empty()) throw CLI::ValidationError("SCENE", "needed to find node '" + homeless + "'");
    return options;
}

std::string helpHint(const CLI::App& app) {
    const auto commands = app.get_subcommands();
    const std::string command = commands.empty() ? "" : " " + commands.front()->get_name();
    return "; see 'tesk-measure" + command + " --help'";
}

} // namespace

std::string commandName(Command command) {
    switch (command) {
    case Command::list:
        return "list";
    case Command::pointPoint:
        return "point-point";
    case Command::pointObject:
        return "point-object";
    case Command::objectObject:
        return "object-object";
    case Command::circle:
        return "circle";
    case Command::gap:
        return "gap";
    case Command::lineObject:
        return "line-object";
    case Command::load:
        return "load";
    case Command::run:
        return "run";
    }
    return {};
}

ParsedOptions parseOptions(std::vector<std::string> arguments) {
    CommandLine commandLine;
    CLI::App& app = commandLine.getApp();
    try {
        return {commandLine.parse(std::move(arguments)), exitDone, {}};
    } catch (const CLI::CallForHelp&) {
        return {std::nullopt, exitDone, app.help()};
    } catch (const CLI::CallForVersion& version) {
        return {std::nullopt, exitDone, std::string(version.what()) + "\n"};
    } catch (const CLI::ParseError& error) {
        return {std::nullopt, exitWrongUsage, error.what() + helpHint(app)};
    }
}

} // namespace tesk::measure
