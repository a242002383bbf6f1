#pragma once

#include <OpenSG/OSGNode.h>

#include <string>

namespace tesk::platform::detail {

/// The first node in document order below a root, without the root, that bears a name (see bearsName()); null when
/// there is none. Neither root nor name is null or empty.
///
/// Two sources define it, and the build takes one: a walk that any scene graph allows, and a lookup in the name index
/// of the embedded scene graph.
osg::NodePtr findNamedNode(const osg::NodePtr& root, const std::string& name);

} // namespace tesk::platform::detail
