#pragma once

#include <measurement/section/LineGraphIterator.h>

#include <OpenSG/OSGNode.h>

#include <map>
#include <set>
#include <utility>
#include <vector>

namespace tesk::measurement {

/// A vertex of a LineGraph: a position of the geometry, in world coordinates.
class TESK_MEASUREMENT_EXPORT LineGraphNode {
public:
    LineGraphNode() = default;
    LineGraphNode(const osg::Pnt3f& worldPosition, int positionIndex) : index(positionIndex), position(worldPosition) {}

    const osg::Pnt3f& getPosition() const { return position; }
    /// Number of the position in the geometry.
    int getIndex() const { return index; }
    /// The nodes that a line joins to this one, in the order of the lines; one for each line, so some may come twice.
    const std::vector<const LineGraphNode*>& getNeighbours() const { return neighbours; }

private:
    friend class LineGraph;

    std::vector<const LineGraphNode*> neighbours;
    int index = 0;
    osg::Pnt3f position{0.0f, 0.0f, 0.0f};
};

/// The lines of one geometry as a graph to walk along, also where they branch or close.
///
/// Every position of the geometry becomes a node, every line between two different position indices an edge. Lines
/// meet only where they share an index, however close their ends are; tkOptimize::unifyVerticesEpsilon() makes them
/// share. Everything is in world coordinates, taken once: the graph does not follow the scene.
///
/// A node that is null or has no geometry as its core gives an empty graph. Lines with an index beyond the positions
/// are passed over.
///
/// Iterators point into the graph, which must outlive them unchanged.
///
/// \code
/// const LineGraph graph(wire);
/// LineGraphIterator place = graph.at(picked);
/// place.moveForward(10.0f);
/// const osg::Pnt3f tenFurther = place.getPosition();
/// \endcode
class TESK_MEASUREMENT_EXPORT LineGraph {
public:
    LineGraph() = default;
    explicit LineGraph(const osg::NodePtr& node) { setNode(node); }
    LineGraph(const LineGraph&) = delete;
    LineGraph& operator=(const LineGraph&) = delete;

    /// Builds the graph of another node.
    void setNode(const osg::NodePtr& node);

    /// The place on the lines nearest a world point, as DistanceSegmentPoint measures them; of edges equally near the
    /// one with the lowest indices. Lines of length zero do not count. Without any other, and for a point that is not
    /// finite, an iterator without nodes.
    ///
    /// Cost: linear in the lines.
    LineGraphIterator at(const osg::Pnt3f& point) const;

private:
    void addLine(int first, int second);

    std::map<int, LineGraphNode> nodes;
    /// First and second index of each line.
    std::set<std::pair<int, int>> edges;
};

} // namespace tesk::measurement
