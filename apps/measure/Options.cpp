#include <apps/measure/Options.h>

#include <apps/measure/Failure.h>
#include <apps/measure/Numbers.h>

#include <CLI/CLI.hpp>

#include <algorithm>

namespace tesk::measure {

namespace {

constexpr const char* overview = R"(Measures in 3D scenes: distances between points and objects, circles through points.

Scene files are STL, OBJ, PLY, OFF, glTF, GLB, 3MF and DAE. Points are world coordinates; all lengths are in the unit
of the files.)";

constexpr const char* programFooter = R"(Examples:
  tesk-measure list vessel.stl
  tesk-measure object-object vessel.stl stirrer.stl
  tesk-measure point-object part.obj --point 1,2,-3 --node bolt --json
  tesk-measure object-object machine.glb --node1 rotor --node2 stator --expect ">= 1.5"

'tesk-measure COMMAND --help' explains a command and its options.

Exit status: 0 done, 1 failure, 2 wrong usage, 3 an expectation was not met.)";

constexpr const char* listFooter = R"(Triangles, lines and bounds of a node include those of everything below it.

Example:
  tesk-measure list vessel.stl machine.glb)";

constexpr const char* pointPointFooter = R"(The row with the sign Δ is point 1 minus point 2.

Example:
  tesk-measure point-point --point1 0,0,0 --point2 -1.5,2,1e-3)";

constexpr const char* pointObjectFooter =
    R"(Triangles and lines of the object count. Point 2 is the nearest point of the object; the row with the sign Δ is
point 1 minus point 2.

Examples:
  tesk-measure point-object part.stl --point -1,2,3
  tesk-measure point-object machine.glb --point 1,2,3 --node rotor)";

constexpr const char* objectObjectFooter =
    R"(Only triangles count. Points 1 and 2 are nearest to each other, one on each object; the row with the sign Δ is
point 1 minus point 2. Objects that touch or intersect have distance 0.

Examples:
  tesk-measure object-object vessel.stl stirrer.stl
  tesk-measure object-object machine.glb --node1 rotor --node2 stator
  tesk-measure object-object a.obj b.obj --node1 a.obj#nut --node2 b.obj#nut --expect "> 0")";

constexpr const char* circleFooter =
    R"(Diameter, circumference and center come with the radius. The normal is not scaled to length 1: its length is twice
the area of the triangle of the three points.

Example:
  tesk-measure circle --point1 1,0,0 --point2 0,1,0 --point3 -1,0,0)";

constexpr const char* nodeFooter = R"(

A node is chosen by its file (path, file name, or file name without extension), by its name, or by both as
FILE#NODE. 'tesk-measure list SCENE' shows the names.)";

constexpr const char* pointHelp = "Point in world coordinates, x,y,z or NODE@x,y,z to say what it lies on";

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
    void addPoint(CLI::App& command, const std::string& name, std::size_t index);
    void addExpectation(CLI::App& command);
    void checkCommand(const std::vector<std::string>& arguments) const;
    void checkObjects() const;
    std::string firstNodeWithoutScene() const;

    CLI::App app{overview, "tesk-measure"};
    Options options;
};

CommandLine::CommandLine() {
    app.require_subcommand(1);
    app.set_version_flag("--version", "tesk-measure " TESK_VERSION, "Show the version and exit");
    app.footer(programFooter);
    app.get_formatter()->column_width(32);
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");

    auto& list =
        addCommand(Command::list, "Show the nodes of scenes: kind, triangles, lines, world bounds", listFooter);
    addScenes(list, true);

    auto& pointPoint = addCommand(Command::pointPoint, "Distance between two points", pointPointFooter);
    addScenes(pointPoint, false);
    addPoint(pointPoint, "--point1", 0);
    addPoint(pointPoint, "--point2", 1);
    addExpectation(pointPoint);

    auto& pointObject = addCommand(Command::pointObject, "Distance from a point to the nearest point of an object",
                                   std::string(pointObjectFooter) + nodeFooter);
    addScenes(pointObject, true);
    addPoint(pointObject, "--point", 0);
    addNode(pointObject, "--node", "The object; may be left out when there is one scene file");
    addExpectation(pointObject);

    auto& objectObject = addCommand(Command::objectObject, "Least distance between two objects",
                                    std::string(objectObjectFooter) + nodeFooter);
    addScenes(objectObject, true);
    addNode(objectObject, "--node1", "The first object; both may be left out when there are two scene files");
    addNode(objectObject, "--node2", "The second object");
    addExpectation(objectObject);

    auto& circle = addCommand(Command::circle, "Circle through three points; its value is the radius", circleFooter);
    addScenes(circle, false);
    addPoint(circle, "--point1", 0);
    addPoint(circle, "--point2", 1);
    addPoint(circle, "--point3", 2);
    addExpectation(circle);
}

CLI::App& CommandLine::addCommand(Command command, const std::string& description, const std::string& footer) {
    CLI::App& added = *app.add_subcommand(commandName(command), description);
    added.callback([this, command] { options.command = command; });
    added.group("Commands");
    added.footer(footer);
    added.add_flag("--json", options.json, "Write JSON, with numbers of 9 significant digits, instead of a table");
    added.add_option("--precision", options.precision, "Significant digits of the table's numbers, 1 to 9")
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

void CommandLine::addPoint(CLI::App& command, const std::string& name, std::size_t index) {
    const auto store = [this, name, index](const std::string& text) {
        options.points.resize(std::max(options.points.size(), index + 1));
        options.points[index] = parsePlacedPoint(name, text);
    };
    command.add_option_function<std::string>(name, store, pointHelp)->required()->type_name("POINT");
}

void CommandLine::addExpectation(CLI::App& command) {
    const auto store = [this](const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            const auto expectation = Expectation::parse(text);
            if (!expectation) {
                throw CLI::ValidationError("--expect", "'" + text + "' is not one of < <= > >= == != and a number");
            }
            options.expectations.push_back(*expectation);
        }
    };
    command
        .add_option_function<std::vector<std::string>>(
            "--expect", store, "Exit with 3 unless the value is so, such as \">= 1.5\"; may be repeated")
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

std::string CommandLine::firstNodeWithoutScene() const {
    if (!options.scenes.empty()) return {};
    for (const PlacedPoint& point : options.points) {
        if (!point.node.empty()) return point.node;
    }
    return {};
}

Options CommandLine::parse(std::vector<std::string> arguments) {
    checkCommand(arguments);
    std::reverse(arguments.begin(), arguments.end());
    app.parse(std::move(arguments));
    checkObjects();
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
