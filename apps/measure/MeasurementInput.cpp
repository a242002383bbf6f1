#include <apps/measure/MeasurementInput.h>

#include <apps/measure/Failure.h>
#include <apps/measure/NodeListing.h>
#include <apps/measure/Numbers.h>

#include <measurement/scene/ChildEnumerator.h>

#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGLineIterator.h>

#include <array>
#include <charconv>
#include <cmath>

namespace tesk::measure {

namespace {

void checkRange(const CatalogueNode& object) {
    const auto bounds = worldBounds(object.node);
    if (!bounds) throw Failure("'" + object.name + "' is empty");
    for (osg::UInt32 axis = 0; axis < 3; ++axis) {
        const bool isInRange = bounds->lower[axis] >= -largestCoordinate && bounds->upper[axis] <= largestCoordinate;
        // Also for NaN, which is in no range.
        if (!isInRange) throw Failure("'" + object.name + "' reaches beyond 1e18, too far for single precision");
    }
}

/// Without such a check an object without triangles would be measured as the distance 0.
void checkTriangles(const CatalogueNode& object) {
    if (object.content.triangles == 0) throw Failure("'" + object.name + "' has no triangles");
    if (object.content.properTriangles == 0) throw Failure("'" + object.name + "' has no triangles with an area");
    checkRange(object);
}

void checkLines(const CatalogueNode& object) {
    if (object.content.lines == 0) throw Failure("'" + object.name + "' has no lines");
    if (object.content.properLines == 0) throw Failure("'" + object.name + "' has no lines with a length");
    checkRange(object);
}

void checkTrianglesOrLines(const CatalogueNode& object) {
    if (object.content.lines == 0) return checkTriangles(object);
    if (object.content.properTriangles + object.content.properLines == 0) {
        throw Failure("'" + object.name + "' has no triangles with an area and no lines with a length");
    }
    checkRange(object);
}

void checkDisjoint(const SceneCatalogue& catalogue, const CatalogueNode& object1, const CatalogueNode& object2) {
    if (&object1 == &object2) throw Failure("both objects are '" + object1.name + "'");
    if (catalogue.isSameOrBelow(object1, object2)) {
        throw Failure("'" + object1.name + "' is a part of '" + object2.name + "'");
    }
    if (catalogue.isSameOrBelow(object2, object1)) checkDisjoint(catalogue, object2, object1);
}

double distanceBetween(const osg::Pnt3f& from, const osg::Pnt3f& to) {
    const osg::Vec3f way = to - from;
    return std::hypot(static_cast<double>(way[0]), static_cast<double>(way[1]), static_cast<double>(way[2]));
}

double worldLineLength(const osg::NodePtr& node) {
    const osg::GeometryPtr geometry = osg::GeometryPtr::dcast(node->getCore());
    if (geometry == osg::NullFC || geometry->getPositions() == osg::NullFC) return 0.0;
    const osg::Matrix toWorld = node->getToWorld();
    double sum = 0.0;
    const auto noLine = geometry->endLines();
    for (auto line = geometry->beginLines(); line != noLine; ++line) {
        osg::Pnt3f start = line.getPosition(0), end = line.getPosition(1);
        toWorld.mult(start, start);
        toWorld.mult(end, end);
        const double length = distanceBetween(start, end);
        if (std::isfinite(length)) sum += length;
    }
    return sum;
}

double worldLineLengthWithin(const osg::NodePtr& root) {
    double sum = 0.0;
    for (std::vector<osg::NodePtr> pending{root}; !pending.empty();) {
        const osg::NodePtr node = pending.back();
        pending.pop_back();
        sum += worldLineLength(node);
        for (measurement::ChildEnumerator child(node); child.hasNext();) pending.push_back(child.next());
    }
    return sum;
}

void checkSamplesUpTo(double most, double count, const std::string& limit) {
    if (!(count > most)) return;
    std::array<char, 32> text;
    // Digit by digit as far as a double counts.
    const auto format = count < 1e15 ? std::chars_format::fixed : std::chars_format::general;
    char* const end = std::to_chars(text.data(), text.data() + text.size(), count, format, count < 1e15 ? 0 : 3).ptr;
    throw Failure(std::string(text.data(), end) + " samples would be needed, but " + limit + "; take a longer step");
}

} // namespace

std::string MeasurementInput::getNodeName(std::size_t index) const {
    return nodes[index] != nullptr ? nodes[index]->name : std::string();
}

osg::NodePtr MeasurementInput::getNode(std::size_t index) const {
    return nodes[index] != nullptr ? nodes[index]->node : osg::NodePtr();
}

void checkInput(const MeasurementInput& input, const SceneCatalogue& catalogue) {
    if (input.kind == Command::pointPoint || input.kind == Command::circle) return;
    for (const CatalogueNode* node : input.nodes) {
        if (node == nullptr) throw Failure("a node is missing");
    }
    const CatalogueNode& node1 = *input.nodes[0];
    const CatalogueNode& node2 = *input.nodes[1];
    if (input.kind == Command::pointObject) return checkTrianglesOrLines(node2);
    checkDisjoint(catalogue, node1, node2);
    if (input.kind == Command::lineObject) {
        checkLines(node1);
        checkTrianglesOrLines(node2);
    } else {
        checkTriangles(node1);
        checkTriangles(node2);
    }
}

double countSamples(const MeasurementInput& input) {
    const bool isSampled = input.kind == Command::gap || input.kind == Command::lineObject;
    if (!isSampled || input.nodes[0] == nullptr || input.nodes[1] == nullptr) return 0.0;
    const double step = static_cast<double>(input.step);
    if (input.kind == Command::gap) return std::floor(distanceBetween(input.points[0], input.points[1]) / step) + 1.0;
    // The start counts for both directions, and each may end with one at a dead end.
    return std::floor(worldLineLengthWithin(input.getNode(0)) / step) + 2.0;
}

void checkSampleCount(double count) { checkSamplesUpTo(1e7, count, "no more than 10000000 are taken"); }

void checkSavedSampleCount(double count) { checkSamplesUpTo(1e6, count, "a document holds no more than 1000000"); }

} // namespace tesk::measure
