#include <measurement/section/LineGraph.h>

#include <measurement/geometry/DistanceSegmentPoint.h>
#include <measurement/geometry/detail/Constants.h>
#include <measurement/scene/detail/GeometryPrimitives.h>
#include <measurement/section/detail/PositionArray.h>

namespace tesk::measurement {

void LineGraph::setNode(const osg::NodePtr& node) {
    nodes.clear();
    edges.clear();
    const osg::GeometryPtr geometry = detail::getGeometry(node);
    if (geometry == osg::NullFC) return;
    const osg::Matrix toWorld = node->getToWorld();
    const detail::GeometryPositions positions(geometry);
    for (int i = 0; positions.contains(i); ++i) {
        osg::Pnt3f position = positions[i];
        toWorld.multMatrixPnt(position);
        nodes.emplace_hint(nodes.end(), i, LineGraphNode(position, i));
    }
    detail::forEachLineByIndex(geometry, positions, [this](int first, int second) {
        if (first != second) addLine(first, second);
    });
}

void LineGraph::addLine(int first, int second) {
    LineGraphNode& firstNode = nodes.at(first);
    LineGraphNode& secondNode = nodes.at(second);
    firstNode.neighbours.push_back(&secondNode);
    secondNode.neighbours.push_back(&firstNode);
    edges.emplace(first, second);
}

LineGraphIterator LineGraph::at(const osg::Pnt3f& point) const {
    LineGraphIterator nearest;
    float best = detail::largestFloat;
    for (const auto& [first, second] : edges) {
        const LineGraphNode& firstNode = nodes.at(first);
        const LineGraphNode& secondNode = nodes.at(second);
        const DistanceSegmentPoint query({firstNode.getPosition(), secondNode.getPosition()}, point);
        if (query.getSquaredDistance() < best) {
            best = query.getSquaredDistance();
            nearest = LineGraphIterator(&firstNode, &secondNode, query.getSegmentParameter());
        }
    }
    return nearest;
}

} // namespace tesk::measurement
