#pragma once

#include <OpenSG/OSGAttachmentContainer.h>
#include <OpenSG/OSGRefPtr.h>

namespace osg {

class Node;
class NodeCore;
typedef FCPtr<AttachmentContainerPtr, Node> NodePtr;
typedef FCPtr<AttachmentContainerPtr, NodeCore> NodeCorePtr;
typedef MField<NodePtr> MFNodePtr;
typedef RefPtr<NodePtr> NodeRefPtr;

/// A new node on an existing core, which may be shared.
OSG_SYSTEMLIB_DLLMAPPING NodePtr makeNodeFor(const NodeCorePtr& core);

/// A new node with a new core.
template <class Core> NodePtr makeCoredNode(typename Core::Ptr* coreOut = nullptr) {
    const typename Core::Ptr core = Core::create();
    if (coreOut) *coreOut = core;
    return makeNodeFor(core);
}

} // namespace osg
