#include <OpenSG/OSGSimpleAttachments.h>

#include <OpenSG/OSGNameIndex.h>

#include <algorithm>
#include <unordered_map>

namespace osg {

namespace {

std::unordered_map<std::string, NameIndex::Containers>& nameIndex() {
    // Never destroyed: containers held by static objects leave it after main() has returned.
    static auto* index = new std::unordered_map<std::string, NameIndex::Containers>;
    return *index;
}

void addToIndex(const std::string& name, AttachmentContainer* container) { nameIndex()[name].insert(container); }

void removeFromIndex(const std::string& name, AttachmentContainer* container) {
    const auto entry = nameIndex().find(name);
    if (entry == nameIndex().end()) return;
    entry->second.erase(container);
    if (entry->second.empty()) nameIndex().erase(entry);
}

NamePtr findName(const AttachmentContainerPtr& container) {
    return NamePtr::dcast(container->findAttachment(Name::getClassType()));
}

} // namespace

OSG_CONTAINER_DEF(Name)

void Name::changed(BitVector whichField, UInt32 origin) {
    if (indexedText != text.getValue()) {
        for (AttachmentContainer* container : indexedContainers) removeFromIndex(indexedText, container);
        indexedText = text.getValue();
        for (AttachmentContainer* container : indexedContainers) addToIndex(indexedText, container);
    }
    Inherited::changed(whichField, origin);
}

void Name::attachedTo(const AttachmentContainerPtr& container, UInt16 binding) {
    if (binding != 0) return;
    if (indexedContainers.empty()) indexedText = text.getValue();
    indexedContainers.push_back(container.getCPtr());
    addToIndex(indexedText, container.getCPtr());
}

void Name::detachedFrom(const AttachmentContainerPtr& container, UInt16 binding) {
    if (binding != 0) return;
    removeFromIndex(indexedText, container.getCPtr());
    indexedContainers.erase(std::find(indexedContainers.begin(), indexedContainers.end(), container.getCPtr()));
}

const NameIndex::Containers& NameIndex::find(const std::string& name) {
    static const Containers none;
    const auto entry = nameIndex().find(name);
    return entry == nameIndex().end() ? none : entry->second;
}

const Char8* getName(const AttachmentContainerPtr& container) {
    if (container == NullFC) return nullptr;
    const NamePtr name = findName(container);
    return name == NullFC ? nullptr : name->getFieldPtr()->getValue().c_str();
}

void setName(const AttachmentContainerPtr& container, const std::string& text) {
    if (container == NullFC) return;
    NamePtr name = findName(container);
    if (name == NullFC) {
        name = Name::create();
        if (name == NullFC) return;
        name->getFieldPtr()->setValue(text);
        container->addAttachment(name);
    } else {
        CPEditor edit(name, Name::SimpleFieldMask);
        name->getFieldPtr()->setValue(text);
    }
}

void setName(const AttachmentContainerPtr& container, const Char8* text) {
    if (container == NullFC) return;
    if (text)
        setName(container, std::string(text));
    else
        container->subAttachment(container->findAttachment(Name::getClassType()));
}

} // namespace osg
