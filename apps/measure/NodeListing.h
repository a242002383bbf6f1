#pragma once

#include <apps/measure/SceneCatalogue.h>

#include <OpenSG/OSGVector.h>

#include <optional>
#include <string>

namespace tesk::measure {

/// The smallest and largest world coordinates of a node and everything below it.
struct Bounds {
    osg::Pnt3f lower;
    osg::Pnt3f upper;
};

/// Nothing when the node is empty.
std::optional<Bounds> worldBounds(const osg::NodePtr& node);

/// One word for what the node is: group or transform, or for a geometry what it holds.
std::string nodeKind(const CatalogueNode& node);

} // namespace tesk::measure
