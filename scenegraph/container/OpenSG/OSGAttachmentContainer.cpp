#include <OpenSG/OSGAttachmentContainer.h>

#include <OpenSG/OSGThread.h>

#include <algorithm>

namespace osg {

OSG_ABSTRACT_CONTAINER_DEF(Attachment)
OSG_ABSTRACT_CONTAINER_DEF(AttachmentContainer)

Int32 Attachment::findParent(const FieldContainerPtr& parent) const {
    const auto found = parents.find(parent);
    return found == parents.end() ? -1 : static_cast<Int32>(found - parents.begin());
}

void Attachment::subParent(const FieldContainerPtr& parent) {
    // From the back: users of a widely shared object usually leave in the reverse of the order in which they came.
    const auto found = std::find(parents.rbegin(), parents.rend(), parent);
    if (found != parents.rend()) parents.erase(found.base() - 1);
}

AttachmentContainer::~AttachmentContainer() {
    while (!entries.empty()) removeEntry(entries.end() - 1);
}

void AttachmentContainer::addAttachment(const AttachmentPtr& attachment, UInt16 binding) {
    if (attachment == NullFC) return;
    // The reference comes first: the attachment may be the one that it replaces.
    const AttachmentPtr added = attachment;
    addRefCP(added);
    const auto old = findEntry(added->getGroupId(), binding);
    if (old != entries.end()) removeEntry(old);
    entries.push_back({added->getGroupId(), binding, added});
    const AttachmentContainerPtr self(*this);
    added->addParent(self);
    added->attachedTo(self, binding);
    Thread::getCurrentChangeList()->addChanged(self, AttachmentsFieldMask);
}

void AttachmentContainer::subAttachment(const AttachmentPtr& attachment, UInt16 binding) {
    if (attachment == NullFC) return;
    const auto found = findEntry(attachment->getGroupId(), binding);
    if (found == entries.end()) return;
    removeEntry(found);
    Thread::getCurrentChangeList()->addChanged(AttachmentContainerPtr(*this), AttachmentsFieldMask);
}

AttachmentPtr AttachmentContainer::findAttachment(UInt32 groupId, UInt16 binding) const {
    for (const Entry& entry : entries)
        if (entry.groupId == groupId && entry.binding == binding) return entry.attachment;
    return NullFC;
}

std::vector<AttachmentContainer::Entry>::iterator AttachmentContainer::findEntry(UInt32 groupId, UInt16 binding) {
    return std::find_if(entries.begin(), entries.end(),
                        [&](const Entry& entry) { return entry.groupId == groupId && entry.binding == binding; });
}

void AttachmentContainer::removeEntry(std::vector<Entry>::iterator entry) {
    const Entry removed = *entry;
    entries.erase(entry);
    const AttachmentContainerPtr self(*this);
    removed.attachment->detachedFrom(self, removed.binding);
    removed.attachment->subParent(self);
    subRefCP(removed.attachment);
}

} // namespace osg
