#pragma once

#include <OpenSG/OSGAttachment.h>

#include <vector>

namespace osg {

/// A container that carries attachments, one for each attachment group and binding.
class OSG_SYSTEMLIB_DLLMAPPING AttachmentContainer : public FieldContainer {
    OSG_ABSTRACT_CONTAINER(AttachmentContainer, FieldContainer)

public:
    enum : UInt32 { AttachmentsFieldId = Inherited::NextFieldId, NextFieldId };
    static constexpr BitVector AttachmentsFieldMask = fieldMask(AttachmentsFieldId);

    /// Replaces, and releases, the attachment of the same group and binding; null is ignored.
    void addAttachment(const AttachmentPtr& attachment, UInt16 binding = 0);
    /// Releases what has the group of the passed attachment and the binding.
    void subAttachment(const AttachmentPtr& attachment, UInt16 binding = 0);
    AttachmentPtr findAttachment(const FieldContainerType& type, UInt16 binding = 0) const {
        return findAttachment(type.getGroupId(), binding);
    }
    AttachmentPtr findAttachment(UInt32 groupId, UInt16 binding = 0) const;

protected:
    AttachmentContainer() = default;
    ~AttachmentContainer() override;

private:
    struct Entry {
        UInt32 groupId;
        UInt16 binding;
        AttachmentPtr attachment;
    };
    std::vector<Entry>::iterator findEntry(UInt32 groupId, UInt16 binding);
    void removeEntry(std::vector<Entry>::iterator entry);

    std::vector<Entry> entries;
};

} // namespace osg
