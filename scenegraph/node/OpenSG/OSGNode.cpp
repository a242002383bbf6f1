#include <OpenSG/OSGNode.h>

#include <OpenSG/OSGThread.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace osg {

OSG_ABSTRACT_CONTAINER_DEF(NodeCore)
OSG_CONTAINER_DEF(Node)

namespace {

void recordChange(const FieldContainerPtrBase& container, BitVector mask) {
    Thread::getCurrentChangeList()->addChanged(container, mask);
}

} // namespace

NodePtr makeNodeFor(const NodeCorePtr& core) {
    const NodePtr node = Node::create();
    if (node != NullFC) node->setCore(core);
    return node;
}

void NodeCore::invalidateVolume() {
    for (const NodePtr& node : parents) node->invalidateVolume();
}

// Without recursion, so that memory alone limits the depth of a scene: a node that dies hands its children on.
Node::~Node() {
    setCore(NullFC);
    std::vector<NodePtr> orphans(children.begin(), children.end());
    while (!orphans.empty()) {
        const NodePtr orphan = orphans.back();
        orphans.pop_back();
        if (orphan == NullFC) continue;
        orphan->setParent(NullFC);
        if (orphan.getRefCount() <= 1) {
            orphans.insert(orphans.end(), orphan->children.begin(), orphan->children.end());
            orphan->children.clear();
        }
        subRefCP(orphan);
    }
}

void Node::setCore(const NodeCorePtr& newCore) {
    const NodePtr self(*this);
    // The reference comes first: the core may be the one that is set already.
    addRefCP(newCore);
    if (core != NullFC) {
        // From the back: nodes that share a core are usually taken apart in the reverse order.
        const auto position = std::find(core->parents.rbegin(), core->parents.rend(), self);
        if (position != core->parents.rend()) core->parents.erase(position.base() - 1);
        recordChange(core, NodeCore::ParentsFieldMask);
        core->changed(NodeCore::ParentsFieldMask, ChangedOrigin::External);
        subRefCP(core);
    }
    core = newCore;
    if (core != NullFC) {
        core->parents.push_back(self);
        recordChange(core, NodeCore::ParentsFieldMask);
        core->changed(NodeCore::ParentsFieldMask, ChangedOrigin::External);
    }
    invalidateVolume();
}

void Node::setParent(const NodePtr& newParent) {
    parent = newParent;
    recordChange(NodePtr(*this), ParentFieldMask);
}

void Node::detachChild(UInt32 index) {
    children[index]->setParent(NullFC);
    children.erase(children.begin() + index);
    invalidateVolume();
}

void Node::adopt(const NodePtr& child) {
    addRefCP(child);
    const NodePtr oldParent = child->getParent();
    if (oldParent != NullFC) oldParent->subChild(child);
    child->setParent(NodePtr(*this));
}

void Node::addChild(const NodePtr& child) {
    if (child == NullFC) return;
    const NodePtr added = child;
    adopt(added);
    children.push_back(added);
    invalidateVolume();
}

void Node::insertChild(UInt32 index, const NodePtr& child) {
    if (child == NullFC) return;
    const NodePtr added = child;
    adopt(added);
    children.insert(children.begin() + index, added);
    invalidateVolume();
}

void Node::replaceChild(UInt32 index, const NodePtr& child) {
    if (child == NullFC || index >= children.size() || children[index] == child) return;
    const NodePtr replaced = children[index];
    const NodePtr added = child;
    adopt(added);
    // Taking the new child from this very node may have moved the old one.
    const Int32 position = findChild(replaced);
    replaced->setParent(NullFC);
    children[static_cast<UInt32>(position)] = added;
    subRefCP(replaced);
    invalidateVolume();
}

bool Node::replaceChildBy(const NodePtr& oldChild, const NodePtr& newChild) {
    const Int32 index = findChild(oldChild);
    if (newChild == NullFC || index < 0) return false;
    replaceChild(static_cast<UInt32>(index), newChild);
    return true;
}

Int32 Node::findChild(const NodePtr& child) const {
    const auto found = children.find(child);
    return found == children.end() ? -1 : static_cast<Int32>(found - children.begin());
}

void Node::subChild(const NodePtr& child) {
    const Int32 index = findChild(child);
    if (index < 0) {
        std::fputs("WARNING: Node::subChild: the node is not a child.\n", stderr);
        return;
    }
    // A pointer that stands in the children field itself goes with the detaching.
    const NodePtr* const field = children.data();
    if (!std::less<>()(&child, field) && std::less<>()(&child, field + children.size()))
        return subChild(static_cast<UInt32>(index));
    detachChild(static_cast<UInt32>(index));
    subRefCP(child);
}

void Node::subChild(UInt32 index) {
    const NodePtr child = children[index];
    detachChild(index);
    subRefCP(child);
}

Matrix Node::getToWorld() const {
    Matrix result;
    getToWorld(result);
    return result;
}

void Node::getToWorld(Matrix& result) const {
    std::vector<NodeCore*> coresUpwards;
    for (const Node* node = this; node; node = node->parent.getCPtr())
        if (node->core != NullFC) coresUpwards.push_back(node->core.getCPtr());
    result.setIdentity();
    for (auto current = coresUpwards.rbegin(); current != coresUpwards.rend(); ++current)
        (*current)->accumulateMatrix(result);
}

DynamicVolume& Node::getVolume(bool update) {
    if (update) updateVolume();
    return volume;
}

void Node::getWorldVolume(DynamicVolume& result) {
    updateVolume();
    result = volume;
    if (parent == NullFC) return;
    Matrix toWorld;
    parent->getToWorld(toWorld);
    result.transform(toWorld);
}

// Without recursion, so that memory alone limits the depth of a scene.
void Node::updateVolume() {
    if (!needsVolume()) return;
    std::vector<Node*> open{this};
    while (!open.empty()) {
        Node* const node = open.back();
        const std::size_t openBefore = open.size();
        for (const NodePtr& child : node->children)
            if (child != NullFC && child->needsVolume()) open.push_back(child.getCPtr());
        if (open.size() > openBefore) continue;
        node->computeVolume();
        open.pop_back();
    }
}

void Node::computeVolume() {
    volume.setEmpty();
    for (const NodePtr& child : children)
        if (child != NullFC && child->travMask != 0) volume.extendBy(child->volume);
    if (core != NullFC) core->adjustVolume(volume.getInstance());
    volume.instanceChanged();
    volume.setValid();
    recordChange(NodePtr(*this), VolumeFieldMask);
}

void Node::invalidateVolume() {
    for (Node* node = this; node; node = node->parent.getCPtr()) {
        if (!node->volume.isValid() || node->volume.isStatic()) return;
        node->volume.setValid(false);
    }
}

void Node::changed(BitVector whichField, UInt32 origin) {
    if (whichField & (ChildrenFieldMask | CoreFieldMask)) invalidateVolume();
    if (whichField & TravMaskFieldMask) {
        if (parent == NullFC)
            invalidateVolume();
        else
            parent->invalidateVolume();
    }
    Inherited::changed(whichField, origin);
}

} // namespace osg
