#pragma once

#include <measurement/Export.h>

#include <OpenSG/OSGNode.h>

namespace tesk::measurement {

/// What a node is called.
class TESK_MEASUREMENT_EXPORT NodeUtils {
public:
    /// The node's name; without one its core's name; without that the core's type, such as "Geometry". Null for a null
    /// node and for a nameless node without a core.
    ///
    /// An empty name counts as a name. The text belongs to the scene graph: it is good until the name changes or its
    /// bearer dies.
    static const char* getName(const osg::NodePtr& node);
};

} // namespace tesk::measurement
