#pragma once

#include <OpenSG/OSGNode.h>

#include <cstddef>

namespace tesk::measure {

/// What can be measured in a node.
struct NodeContent {
    std::size_t triangles = 0;
    std::size_t lines = 0;
    /// Of these, the triangles with an area and the lines with a length, all coordinates finite: only they have a
    /// nearest point.
    std::size_t properTriangles = 0;
    std::size_t properLines = 0;

    NodeContent& operator+=(const NodeContent& other);
};

/// Counts the node's own geometry, not its children's, in time proportional to it; nothing for any other core.
NodeContent countContent(const osg::NodePtr& node);

} // namespace tesk::measure
