#include <OpenSG/OSGFieldContainer.h>

#include <OpenSG/OSGAttachmentContainer.h>
#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGThread.h>

#include <cstdlib>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace osg {

namespace {

bool systemRunning = false;
bool readWriteDefault = false;

/// Live objects by number. Never destroyed: static pointers may release their objects after main() has returned.
std::unordered_map<UInt32, FieldContainer*>& liveContainers() {
    static auto* containers = new std::unordered_map<UInt32, FieldContainer*>;
    return *containers;
}

std::vector<ExitFuncF>& exitFunctions() {
    // Never destroyed: osgExit() may run when main() has returned.
    static auto* functions = new std::vector<ExitFuncF>;
    return *functions;
}

UInt32 nextContainerId() {
    static UInt32 lastId = 0;
    return ++lastId;
}

UInt32 nextTypeId() {
    static UInt32 lastId = 0;
    return ++lastId;
}

bool isDerivedFromNamed(const FieldContainerType* type, std::string_view name) {
    for (; type; type = type->getParent())
        if (type->getCName() == name) return true;
    return false;
}

} // namespace

bool osgInit(Int32, Char8**, UInt16, UInt16, UInt16) {
    if (systemRunning) return true;
    systemRunning = true;
    Thread::getCurrentChangeList()->setReadOnly(!readWriteDefault);
    static const bool exitRegistered = std::atexit([] { osgExit(); }) == 0;
    return exitRegistered;
}

bool osgExit() {
    systemRunning = false;
    while (!exitFunctions().empty()) {
        const ExitFuncF exitFunction = exitFunctions().back();
        exitFunctions().pop_back();
        exitFunction();
    }
    return true;
}

void addSystemExitFunction(ExitFuncF exitFunction) { exitFunctions().push_back(exitFunction); }

FieldContainerType::FieldContainerType(const Char8* typeName, FieldContainerType* parentType)
    : name(typeName), parent(parentType), id(nextTypeId()) {}

bool FieldContainerType::isNode() const { return isDerivedFromNamed(this, "Node"); }
bool FieldContainerType::isNodeCore() const { return isDerivedFromNamed(this, "NodeCore"); }
bool FieldContainerType::isAttachment() const { return isDerivedFrom(Attachment::getClassType()); }

Int32 FieldContainerPtrBase::getRefCount() const { return object ? object->refCount : 0; }
UInt32 FieldContainerPtrBase::getFieldContainerId() const { return object->id; }

bool ContainerAccess::isDerivedFrom(const FieldContainerPtrBase& pointer, const FieldContainerType& type) {
    return pointer.object && pointer.object->getType().isDerivedFrom(type);
}

void addRefCP(const FieldContainerPtrBase& pointer) {
    FieldContainer* container = ContainerAccess::get(pointer);
    if (!container) return;
    ++container->refCount;
    Thread::getCurrentChangeList()->addAddRefd(pointer);
}

void subRefCP(const FieldContainerPtrBase& pointer) {
    FieldContainer* container = ContainerAccess::get(pointer);
    if (!container) return;
    Thread::getCurrentChangeList()->addSubRefd(pointer);
    if (--container->refCount > 0) return;
    ContainerAccess::setNull(pointer);
    delete container;
}

FieldContainer::FieldContainer() : id(nextContainerId()) {
    liveContainers().emplace(id, this);
    Thread::getCurrentChangeList()->addCreated(id);
}

FieldContainer::~FieldContainer() {
    liveContainers().erase(id);
    Thread::getCurrentChangeList()->addDestroyed(id);
}

FieldContainerType& FieldContainer::getClassType() {
    static FieldContainerType type("FieldContainer", nullptr);
    return type;
}

void FieldContainer::changed(BitVector, UInt32) {}

bool FieldContainer::isSystemRunning() { return systemRunning; }

FieldContainerFactory* FieldContainerFactory::the() {
    static FieldContainerFactory factory;
    return &factory;
}

FieldContainerPtr FieldContainerFactory::getContainer(UInt32 id) const {
    const auto found = liveContainers().find(id);
    return found == liveContainers().end() ? FieldContainerPtr() : FieldContainerPtr(*found->second);
}

void beginEditCP(const FieldContainerPtr&, BitVector, UInt32) {}

void endEditCP(const FieldContainerPtr& container, BitVector mask, UInt32 origin) {
    if (container == NullFC) return;
    Thread::getCurrentChangeList()->addChanged(container, mask);
    container->changed(mask, origin);
}

void changedCP(const FieldContainerPtr& container, BitVector mask, UInt32 origin) {
    if (container != NullFC) container->changed(mask, origin);
}

void endEditNotChangedCP(const FieldContainerPtr& container, BitVector mask, UInt32) {
    if (container != NullFC) Thread::getCurrentChangeList()->addChanged(container, mask);
}

PThreadBase* PThreadBase::getCurrent() {
    static Thread thread;
    return &thread;
}

ChangeList* PThreadBase::getCurrentChangeList() {
    // Never destroyed, as the live containers above.
    static auto* list = new ChangeList;
    return list;
}

void ChangeList::setReadWriteDefault(bool readWrite) { readWriteDefault = readWrite; }
void ChangeList::setReadOnly(bool readOnly) { recording = !readOnly; }

void ChangeList::addChanged(const FieldContainerPtrBase& container, BitVector mask) {
    if (recording && container) changedEntries.emplace_back(container.getFieldContainerId(), mask);
}

void ChangeList::addAddRefd(const FieldContainerPtrBase& container) {
    if (recording && container) addRefdIds.push_back(container.getFieldContainerId());
}

void ChangeList::addSubRefd(const FieldContainerPtrBase& container) {
    if (recording && container) subRefdIds.push_back(container.getFieldContainerId());
}

void ChangeList::addCreated(UInt32 id) {
    if (recording) createdIds.push_back(id);
}

void ChangeList::addDestroyed(UInt32 id) {
    if (recording) destroyedIds.push_back(id);
}

bool ChangeList::empty() const {
    return changedEntries.empty() && addRefdIds.empty() && subRefdIds.empty() && createdIds.empty() &&
           destroyedIds.empty();
}

void ChangeList::clearAll() {
    changedEntries.clear();
    addRefdIds.clear();
    subRefdIds.clear();
    createdIds.clear();
    destroyedIds.clear();
}

} // namespace osg
