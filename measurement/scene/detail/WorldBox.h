#pragma once

#include <OpenSG/OSGNode.h>

#include <measurement/geometry/detail/Box.h>

namespace tesk::measurement::detail {

/// A node's world volume as a box. An empty volume has bounds too, those it had last.
struct WorldBox {
    Box bounds;
    bool isEmpty;
};

/// Brings the node's volume up to date.
WorldBox getWorldBox(const osg::NodePtr& node);

} // namespace tesk::measurement::detail
