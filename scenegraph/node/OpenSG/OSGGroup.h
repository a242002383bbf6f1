#pragma once

#include <OpenSG/OSGNodeCore.h>

namespace osg {

class Group;
typedef FCPtr<NodeCorePtr, Group> GroupPtr;
typedef RefPtr<GroupPtr> GroupRefPtr;

/// A core that only groups its node's children.
class OSG_SYSTEMLIB_DLLMAPPING Group : public NodeCore {
    OSG_CONTAINER(Group, NodeCore)

protected:
    Group() = default;
};

} // namespace osg
