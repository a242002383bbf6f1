#pragma once

#include <OpenSG/OSGFieldContainer.h>

namespace osg {

class AttachmentContainer;
class Attachment;
typedef FCPtr<FieldContainerPtr, AttachmentContainer> AttachmentContainerPtr;
typedef FCPtr<FieldContainerPtr, Attachment> AttachmentPtr;
typedef MField<FieldContainerPtr> MFFieldContainerPtr;

/// Something hung on a container, or used by one, that the containers may share.
class OSG_SYSTEMLIB_DLLMAPPING Attachment : public FieldContainer {
    OSG_ABSTRACT_CONTAINER(Attachment, FieldContainer)

public:
    enum : UInt32 { ParentsFieldId = Inherited::NextFieldId, InternalFieldId, NextFieldId };
    static constexpr BitVector ParentsFieldMask = fieldMask(ParentsFieldId);
    static constexpr BitVector InternalFieldMask = fieldMask(InternalFieldId);

    /// The containers that use this object, one entry a use.
    MFFieldContainerPtr& getParents() { return parents; }
    /// Index of the parent, or -1.
    Int32 findParent(const FieldContainerPtr& parent) const;

    bool getInternal() const { return internal; }
    void setInternal(bool value) { internal = value; }

    void addParent(const FieldContainerPtr& parent) { parents.push_back(parent); }
    void subParent(const FieldContainerPtr& parent);

protected:
    Attachment() = default;

    /// Tells a subclass where it was attached, or detached from.
    virtual void attachedTo(const AttachmentContainerPtr&, UInt16 /*binding*/) {}
    virtual void detachedFrom(const AttachmentContainerPtr&, UInt16 /*binding*/) {}

private:
    friend class AttachmentContainer;

    MFFieldContainerPtr parents;
    bool internal = false;
};

} // namespace osg
