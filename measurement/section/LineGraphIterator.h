#pragma once

#include <measurement/Export.h>

#include <OpenSG/OSGVector.h>

namespace tesk::measurement {

class LineGraphNode;

/// A place on a LineGraph: an edge, run through from its first to its second node, and a parameter along it.
///
/// Where the walk comes to a node it goes on to the neighbour most nearly straight ahead, to the first in the list of
/// equally straight ones, and never back along the edge that it came by. Lines of length zero count as no way on, and
/// one that it stands on has none.
///
/// Positions are in world coordinates, distances in world units along the lines. The nodes belong to their graph, which
/// must outlive the iterator. Without nodes every position is the origin, both ends are reached, and nothing moves.
class TESK_MEASUREMENT_EXPORT LineGraphIterator {
public:
    /// Without nodes.
    LineGraphIterator() = default;
    LineGraphIterator(const LineGraphNode* first, const LineGraphNode* second, float edgeParameter)
        : firstNode(first), secondNode(second), parameter(edgeParameter) {}

    osg::Pnt3f getPosition() const;
    /// From the first node to the second, as long as the edge.
    osg::Vec3f getDirection() const;
    const LineGraphNode* getFirstNode() const { return firstNode; }
    const LineGraphNode* getSecondNode() const { return secondNode; }
    /// Number of the node's position in the geometry, -1 without a node.
    int getFirstIndex() const;
    int getSecondIndex() const;
    /// 0 at the first node, 1 at the second.
    float getParameter() const { return parameter; }
    /// For a value from 0 to 1, which is not checked.
    void setParameter(float edgeParameter) { parameter = edgeParameter; }

    /// Moves a distance along the lines, or to the end that comes before it.
    ///
    /// Within the last twentieth before a dead end it does not move at all. On a closed loop it circles until the
    /// distance is used up, in time that grows with the loop and hardly with the distance; where single precision has
    /// no larger sum to offer, or the distance is not a number, it stops at a node of the loop. A negative distance
    /// moves the other way along the edge's line, beyond the edge if need be.
    void moveForward(float distance);
    /// The mirror image.
    void moveBackward(float distance);

    /// Goes over to the edge that a walk takes after the second node, which becomes the first. The parameter stays.
    /// False, with nothing changed, where no edge goes on.
    bool findNextPoint();
    /// The mirror image: the first node becomes the second.
    bool findPreviousPoint();

    /// Whether the rest of the way to a dead end is at most a twentieth of its edge.
    bool isAtEnd() const;
    bool isAtBeginning() const;

    /// Moves to where the walk backward ends: parameter 0 at a dead end or, on a closed loop, on the edge from a node
    /// already passed. The place itself counts as passed from its second node on.
    void moveToStart();
    /// The mirror image: parameter 1.
    void moveToEnd();

private:
    bool hasNodes() const { return firstNode != nullptr && secondNode != nullptr; }
    float getLength() const;

    const LineGraphNode* firstNode = nullptr;
    const LineGraphNode* secondNode = nullptr;
    float parameter = 0.0f;
};

} // namespace tesk::measurement
