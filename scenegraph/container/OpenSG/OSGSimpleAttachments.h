#pragma once

#include <OpenSG/OSGAttachmentContainer.h>

#include <string>

namespace osg {

class Name;
typedef FCPtr<AttachmentPtr, Name> NamePtr;

/// A text attached to a node or core.
class OSG_SYSTEMLIB_DLLMAPPING Name : public Attachment {
    OSG_CONTAINER(Name, Attachment)

public:
    enum : UInt32 { SimpleFieldId = Inherited::NextFieldId, NextFieldId };
    static constexpr BitVector SimpleFieldMask = fieldMask(SimpleFieldId);

    SFString* getFieldPtr() { return &text; }
    SFString& getField() { return text; }
    const SFString& getField() const { return text; }

    void changed(BitVector whichField, UInt32 origin) override;

protected:
    Name() = default;

    void attachedTo(const AttachmentContainerPtr& container, UInt16 binding) override;
    void detachedFrom(const AttachmentContainerPtr& container, UInt16 binding) override;

private:
    SFString text;
    /// The text under which the containers stand in the index, and those containers.
    std::string indexedText;
    std::vector<AttachmentContainer*> indexedContainers;
};

/// The container's name, or null when it has none or is null. The text belongs to the attachment.
OSG_SYSTEMLIB_DLLMAPPING const Char8* getName(const AttachmentContainerPtr& container);
OSG_SYSTEMLIB_DLLMAPPING void setName(const AttachmentContainerPtr& container, const std::string& name);
/// A null text removes the name.
OSG_SYSTEMLIB_DLLMAPPING void setName(const AttachmentContainerPtr& container, const Char8* name);

} // namespace osg
