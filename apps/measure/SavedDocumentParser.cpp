#include <apps/measure/SavedDocumentParser.h>

#include <apps/measure/Failure.h>
#include <apps/measure/Numbers.h>

#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>

namespace tesk::measure {

namespace {

using Texts = std::vector<std::string>;

/// How a kind is saved, as far as it is an input.
struct SavedKind {
    std::string tag;
    Command kind;
    Texts nodeAttributes;
    Texts pointTags;
};

const SavedKind* findKind(const std::string& tag) {
    static const std::vector<SavedKind> kinds = {
        {"ObjectObjectMeasurement", Command::objectObject, {"node1", "node2"}, {}},
        {"PointPointMeasurement", Command::pointPoint, {"node1", "node2"}, {"Point1", "Point2"}},
        {"CircleMeasurement", Command::circle, {"node1", "node2", "node3"}, {"Point1", "Point2", "Point3"}},
        {"PointObjectMeasurement", Command::pointObject, {"node1", "node2"}, {"Point1"}},
        {"LineObjectMeasurement", Command::lineObject, {"line", "node"}, {"LinePoint"}},
        {"GapMeasurement", Command::gap, {"node1", "node2"}, {"Point1", "Point2"}},
    };
    const auto found = std::find_if(kinds.begin(), kinds.end(), [&](const SavedKind& kind) { return kind.tag == tag; });
    return found != kinds.end() ? &*found : nullptr;
}

/// What the format has, but measuring does not read.
bool isPassedOver(const std::string& tag) {
    static const Texts tags = {"Description", "Point1", "Point2", "Value", "Samples"};
    return std::find(tags.begin(), tags.end(), tag) != tags.end();
}

class Parser {
public:
    Parser(const QString& text, std::vector<std::string>& noteLines) : reader(text), notes(noteLines) {
        reader.setNamespaceProcessing(false);
    }
    std::vector<SavedMeasurement> parse();

private:
    SavedMeasurement parseMeasurement(const SavedKind& kind);
    void parseChild(const SavedKind& kind, SavedMeasurement& measurement);
    osg::Pnt3f parsePoint() const;
    float parseNumber(const char* attribute) const;
    float parseStep() const;
    std::string tag() const { return reader.name().toString().toStdString(); }
    [[noreturn]] void fail(const std::string& cause) const;

    void passOver() { notes.push_back(atLine("unknown element '" + tag() + "' passed over")); }
    std::string atLine(const std::string& text) const {
        return "line " + std::to_string(reader.lineNumber()) + ": " + text;
    }

    QXmlStreamReader reader;
    std::vector<std::string>& notes;
};

std::vector<SavedMeasurement> Parser::parse() {
    std::vector<SavedMeasurement> measurements;
    if (reader.readNextStartElement() && tag() != "Measurements") fail("'" + tag() + "' instead of 'Measurements'");
    while (reader.readNextStartElement()) {
        if (const SavedKind* const kind = findKind(tag())) {
            measurements.push_back(parseMeasurement(*kind));
        } else {
            passOver();
            reader.skipCurrentElement();
        }
    }
    if (reader.hasError()) fail(reader.errorString().toStdString());
    return measurements;
}

SavedMeasurement Parser::parseMeasurement(const SavedKind& kind) {
    SavedMeasurement measurement;
    measurement.kind = kind.kind;
    measurement.points.resize(kind.pointTags.size(), osg::Pnt3f(0.0f, 0.0f, 0.0f));
    // What the library takes when the document does not say.
    measurement.step = 10.0f;
    for (const std::string& attribute : kind.nodeAttributes) {
        measurement.nodes.push_back(
            reader.attributes().value(QString::fromStdString(attribute)).toString().toStdString());
    }
    while (reader.readNextStartElement()) {
        parseChild(kind, measurement);
        reader.skipCurrentElement();
    }
    return measurement;
}

void Parser::parseChild(const SavedKind& kind, SavedMeasurement& measurement) {
    const auto point = std::find(kind.pointTags.begin(), kind.pointTags.end(), tag());
    const bool isSampled = kind.kind == Command::gap || kind.kind == Command::lineObject;
    if (point != kind.pointTags.end())
        measurement.points[static_cast<std::size_t>(point - kind.pointTags.begin())] = parsePoint();
    else if (isSampled && tag() == "SampleDistance")
        measurement.step = parseStep();
    else if (!isPassedOver(tag()))
        passOver();
}

osg::Pnt3f Parser::parsePoint() const { return {parseNumber("x"), parseNumber("y"), parseNumber("z")}; }

float Parser::parseNumber(const char* attribute) const {
    const std::string text = reader.attributes().value(QLatin1String(attribute)).toString().toStdString();
    const auto number = tesk::measure::parseNumber(text);
    if (number && std::abs(*number) <= largestCoordinate) return *number;
    fail("'" + text + "' as " + attribute + " of '" + tag() + "' is not a number up to 1e18");
}

float Parser::parseStep() const {
    const float step = parseNumber("value");
    if (!(step > 0.0f)) fail("the sample distance is not positive");
    return step;
}

void Parser::fail(const std::string& cause) const { throw Failure(atLine(cause)); }

} // namespace

std::vector<SavedMeasurement> parseSavedDocument(const QString& text, std::vector<std::string>& notes) {
    return Parser(text, notes).parse();
}

} // namespace tesk::measure
