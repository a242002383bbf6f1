#pragma once

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGDynamicVolume.h>
#include <OpenSG/OSGMatrix.h>
#include <OpenSG/OSGNodeCore.h>
#include <OpenSG/OSGNodePtr.h>
#include <OpenSG/OSGVector.h>

namespace osg {

/// A place in the scene tree: one parent, ordered children, a core and a cached volume.
///
/// The node holds a reference to its core and to each child, none to its parent.
class OSG_SYSTEMLIB_DLLMAPPING Node : public AttachmentContainer {
    OSG_CONTAINER(Node, AttachmentContainer)

public:
    enum : UInt32 {
        VolumeFieldId = Inherited::NextFieldId,
        TravMaskFieldId,
        ParentFieldId,
        ChildrenFieldId,
        CoreFieldId,
        NextFieldId
    };
    static constexpr BitVector VolumeFieldMask = fieldMask(VolumeFieldId);
    static constexpr BitVector TravMaskFieldMask = fieldMask(TravMaskFieldId);
    static constexpr BitVector ParentFieldMask = fieldMask(ParentFieldId);
    static constexpr BitVector ChildrenFieldMask = fieldMask(ChildrenFieldId);
    static constexpr BitVector CoreFieldMask = fieldMask(CoreFieldId);

    typedef DynamicVolume VolumeType;

    NodeCorePtr getCore() const { return core; }
    void setCore(const NodeCorePtr& newCore);

    NodePtr getParent() const { return parent; }
    UInt32 getNChildren() const { return children.getSize(); }
    NodePtr getChild(UInt32 index) const { return children[index]; }
    MFNodePtr* getMFChildren() { return &children; }
    const MFNodePtr* getMFChildren() const { return &children; }

    /// Appends the child, taking it from the parent that it has; null is ignored.
    void addChild(const NodePtr& child);
    /// The same, in front of position index.
    void insertChild(UInt32 index, const NodePtr& child);
    /// Nothing when the index is out of range or the child null.
    void replaceChild(UInt32 index, const NodePtr& child);
    bool replaceChildBy(const NodePtr& oldChild, const NodePtr& newChild);
    /// Index of the child, or -1; linear.
    Int32 findChild(const NodePtr& child) const;
    /// Removes and releases the child; when nobody else holds it, it is destroyed and the passed pointer becomes null.
    void subChild(const NodePtr& child);
    void subChild(UInt32 index);

    UInt32 getTravMask() const { return travMask; }
    void setTravMask(UInt32 mask) { travMask = mask; }
    bool getActive() const { return travMask == 0xffffffff; }
    void setActive(bool active) { travMask = active ? 0xffffffff : 0; }

    /// Product of the core matrices from the root down to and including this node's; computed on every call.
    Matrix getToWorld() const;
    void getToWorld(Matrix& result) const;

    /// Volume of the subtree in the parent's frame, this node's own transform included.
    DynamicVolume& getVolume(bool update);
    /// The cached volume as it stands, possibly invalid.
    const DynamicVolume& getVolume() const { return volume; }
    /// Volume of the subtree in world coordinates, from the cached volume.
    void getWorldVolume(DynamicVolume& result);
    /// Recomputes the volume when it is invalid; never for a node with traversal mask 0.
    void updateVolume();
    /// Makes the volumes of this node and its ancestors invalid, up to the first one that already is or is static.
    void invalidateVolume();

    void changed(BitVector whichField, UInt32 origin) override;

protected:
    Node() { volume.setValid(false); }
    ~Node() override;

private:
    void setParent(const NodePtr& newParent);
    /// Unlinks without releasing the reference.
    void detachChild(UInt32 index);
    /// Takes the child from where it is, with a reference of this node's own.
    void adopt(const NodePtr& child);
    bool needsVolume() const { return !volume.isValid() && travMask != 0; }
    /// From the children's volumes, which are up to date.
    void computeVolume();

    DynamicVolume volume;
    UInt32 travMask = 0xffffffff;
    NodePtr parent;
    MFNodePtr children;
    NodeCorePtr core;
};

} // namespace osg
