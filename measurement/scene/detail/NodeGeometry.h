#pragma once

#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGNode.h>

namespace tesk::measurement::detail {

/// The node's core as a geometry; null if it is none.
inline osg::GeometryPtr getGeometry(const osg::NodePtr& node) {
    return node != osg::NullFC ? osg::GeometryPtr::dcast(node->getCore()) : osg::GeometryPtr();
}

} // namespace tesk::measurement::detail
