#pragma once

#include <OpenSG/OSGMatrix.h>
#include <OpenSG/OSGNodePtr.h>
#include <OpenSG/OSGVolume.h>

namespace osg {

/// What a node is: its effect on the subtree and its content. Nodes share cores freely.
class OSG_SYSTEMLIB_DLLMAPPING NodeCore : public AttachmentContainer {
    OSG_ABSTRACT_CONTAINER(NodeCore, AttachmentContainer)

public:
    enum : UInt32 { ParentsFieldId = Inherited::NextFieldId, NextFieldId };
    static constexpr BitVector ParentsFieldMask = fieldMask(ParentsFieldId);

    /// The nodes that use this core.
    MFNodePtr& getParents() { return parents; }
    MFNodePtr* getMFParents() { return &parents; }

    /// Makes the volumes of all nodes that use this core invalid.
    virtual void invalidateVolume();

protected:
    NodeCore() = default;

    /// Multiplies the core's own matrix on the right.
    virtual void accumulateMatrix(Matrix&) {}
    /// Changes the union of the children's volumes to what the node occupies.
    virtual void adjustVolume(Volume&) {}

private:
    friend class Node;

    MFNodePtr parents;
};

} // namespace osg
