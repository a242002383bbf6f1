#pragma once

#include <apps/measure/Expectation.h>
#include <apps/measure/PictureOptions.h>

#include <OpenSG/OSGVector.h>

#include <optional>
#include <string>
#include <vector>

namespace tesk::measure {

enum class Command { list, pointPoint, pointObject, objectObject, circle, gap, lineObject, load, run };

/// A point in world coordinates and the node it lies on, whose name is empty when none was given.
struct PlacedPoint {
    std::string node;
    osg::Pnt3f point;
};

/// What the command line asks for.
struct Options {
    Command command = Command::list;
    std::vector<std::string> scenes;
    /// As many as the command takes, in the order of their numbers.
    std::vector<PlacedPoint> points;
    /// The objects of point-object and line-object (one) and object-object (two); empty when the scene files stand for
    /// themselves.
    std::vector<std::string> nodes;
    /// The sample distance of gap and line-object.
    float step = 0.0f;
    /// On the command's own measurement.
    std::vector<Expectation> expectations;
    /// On the measurements of the document.
    std::vector<NamedExpectation> namedExpectations;
    /// The document to load, empty for none.
    std::string document;
    /// Where to save all measurements, and where the samples; empty for nowhere.
    std::string saveFile;
    std::string sampleFile;
    PictureOptions picture;
    bool json = false;
    /// Significant digits of the table's numbers.
    int precision = 7;
};

/// Either options or, when there is nothing to carry out, the text to show and the status to exit with: help and
/// version belong on standard output, the one line about wrong usage on standard error.
struct ParsedOptions {
    std::optional<Options> options;
    int exitStatus = 0;
    std::string text;
};

/// The arguments come without the program's name.
ParsedOptions parseOptions(std::vector<std::string> arguments);

/// As the command line spells it.
std::string commandName(Command command);

} // namespace tesk::measure
