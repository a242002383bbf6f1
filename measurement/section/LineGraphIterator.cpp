#include <measurement/section/LineGraphIterator.h>

#include <measurement/geometry/detail/Constants.h>
#include <measurement/geometry/detail/VectorMath.h>
#include <measurement/section/LineGraph.h>
#include <measurement/section/detail/RoundTrips.h>

#include <algorithm>
#include <cmath>
#include <set>

namespace tesk::measurement {

namespace {

/// From this parameter on, or to it from the other side, a dead end counts as reached.
constexpr float endParameter = 0.95f;
constexpr float beginningParameter = 0.05f;

float length(const osg::Vec3f& vector) { return std::sqrt(detail::squaredLength(vector)); }

/// The neighbour of a node most nearly straight ahead for a walk that comes from another; null at a dead end.
const LineGraphNode* findStraightest(const LineGraphNode& from, const LineGraphNode& node) {
    const osg::Vec3f ahead = detail::difference(node.getPosition(), from.getPosition());
    const LineGraphNode* straightest = nullptr;
    float bestCosine = -detail::largestFloat;
    for (const LineGraphNode* neighbour : node.getNeighbours()) {
        if (neighbour == &from) continue;
        const osg::Vec3f onward = detail::difference(neighbour->getPosition(), node.getPosition());
        const float cosine = detail::dot(ahead, onward) / (length(onward) * length(ahead));
        // False for the NaN of a length of zero.
        if (cosine > bestCosine) {
            bestCosine = cosine;
            straightest = neighbour;
        }
    }
    return straightest;
}

bool isDeadEnd(const LineGraphNode& node, const LineGraphNode* from) {
    const auto& neighbours = node.getNeighbours();
    return std::all_of(neighbours.begin(), neighbours.end(),
                       [&](const LineGraphNode* neighbour) { return neighbour == from || neighbour == &node; });
}

} // namespace

osg::Pnt3f LineGraphIterator::getPosition() const {
    if (!hasNodes()) return {0.0f, 0.0f, 0.0f};
    return detail::pointAt(firstNode->getPosition(), parameter, getDirection());
}

osg::Vec3f LineGraphIterator::getDirection() const {
    if (!hasNodes()) return {0.0f, 0.0f, 0.0f};
    return detail::difference(secondNode->getPosition(), firstNode->getPosition());
}

int LineGraphIterator::getFirstIndex() const { return firstNode != nullptr ? firstNode->getIndex() : -1; }

int LineGraphIterator::getSecondIndex() const { return secondNode != nullptr ? secondNode->getIndex() : -1; }

float LineGraphIterator::getLength() const { return length(getDirection()); }

void LineGraphIterator::moveForward(float distance) {
    detail::RoundTrips rounds(distance);
    float walked = 0.0f;
    while (!isAtEnd()) {
        const float edgeLength = getLength();
        const float reach = (1.0f - parameter) * edgeLength + walked;
        if (distance <= reach) {
            parameter = parameter + (distance - walked) / edgeLength;
            return;
        }
        parameter = 0.0f;
        if (!findNextPoint()) {
            parameter = 1.0f;
            return;
        }
        walked = reach;
        if (!rounds.enterEdge(firstNode, secondNode, walked)) return;
    }
}

void LineGraphIterator::moveBackward(float distance) {
    detail::RoundTrips rounds(distance);
    float walked = 0.0f;
    while (!isAtBeginning()) {
        const float edgeLength = getLength();
        const float reach = parameter * edgeLength + walked;
        if (distance <= reach) {
            parameter = parameter - (distance - walked) / edgeLength;
            return;
        }
        parameter = 1.0f;
        if (!findPreviousPoint()) {
            parameter = 0.0f;
            return;
        }
        walked = reach;
        if (!rounds.enterEdge(firstNode, secondNode, walked)) return;
    }
}

bool LineGraphIterator::findNextPoint() {
    const LineGraphNode* const next = hasNodes() ? findStraightest(*firstNode, *secondNode) : nullptr;
    if (next == nullptr) return false;
    firstNode = secondNode;
    secondNode = next;
    return true;
}

bool LineGraphIterator::findPreviousPoint() {
    const LineGraphNode* const previous = hasNodes() ? findStraightest(*secondNode, *firstNode) : nullptr;
    if (previous == nullptr) return false;
    secondNode = firstNode;
    firstNode = previous;
    return true;
}

bool LineGraphIterator::isAtEnd() const {
    return !hasNodes() || (parameter >= endParameter && isDeadEnd(*secondNode, firstNode));
}

bool LineGraphIterator::isAtBeginning() const {
    return !hasNodes() || (parameter <= beginningParameter && isDeadEnd(*firstNode, secondNode));
}

void LineGraphIterator::moveToStart() {
    std::set<int> visited;
    do visited.insert(getSecondIndex());
    while (findPreviousPoint() && visited.count(getFirstIndex()) == 0);
    parameter = 0.0f;
}

void LineGraphIterator::moveToEnd() {
    std::set<int> visited;
    do visited.insert(getFirstIndex());
    while (findNextPoint() && visited.count(getSecondIndex()) == 0);
    parameter = 1.0f;
}

} // namespace tesk::measurement
