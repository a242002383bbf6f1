#include <OpenSG/OSGAction.h>

#include <utility>

namespace osg {

/// A node that was entered and is not left yet.
struct Action::Visit {
    bool isDone() const { return next == (usesList ? list.size() : node->getNChildren()); }
    NodePtr takeNext() {
        const UInt32 index = next++;
        return usesList ? list[index] : node->getChild(index);
    }

    NodePtr node;
    bool usesList;
    std::vector<NodePtr> list;
    UInt32 next = 0;
};

Action::~Action() = default;

void Action::FunctorTable::set(std::vector<Functor>& functors, const FieldContainerType& type, const Functor& functor) {
    if (functors.size() <= type.getId()) functors.resize(type.getId() + 1);
    functors[type.getId()] = functor;
}

Action::ResultE Action::FunctorTable::call(const std::vector<Functor>& functors, CNodePtr& core, Action* action) {
    const UInt32 id = core->getTypeId();
    return id < functors.size() && functors[id] ? functors[id](core, action) : Continue;
}

void Action::addNode(const NodePtr& node) {
    usesNodeList = true;
    nodeList.push_back(node);
}

Action::ResultE Action::apply(const NodePtr& root) {
    if (root == NullFC) return Quit;
    const ResultE started = start();
    if (started != Continue) return started;
    return stop(walk(root));
}

// Without recursion, so that memory alone limits the depth of a scene.
Action::ResultE Action::walk(const NodePtr& root) {
    std::vector<Visit> open;
    ResultE result = enterNode(root, open);
    while (!open.empty()) {
        if (result == Continue && !open.back().isDone()) {
            result = enterNode(open.back().takeNext(), open);
            continue;
        }
        const NodePtr node = open.back().node;
        open.pop_back();
        if (leaveNode(node) == Quit) result = Quit;
    }
    return result;
}

Action::ResultE Action::enterNode(const NodePtr& node, std::vector<Visit>& open) {
    if (node == NullFC || (node->getTravMask() & travMask) == 0) return Continue;
    if (node->getCore() == NullFC) return Quit;
    actNode = node;
    usesNodeList = false;
    nodeList.clear();
    const ResultE result = getFunctors().callEnter(node->getCore(), this);
    if (result == Continue) open.push_back({node, usesNodeList, std::move(nodeList)});
    return result == Quit ? Quit : Continue;
}

Action::ResultE Action::leaveNode(const NodePtr& node) {
    actNode = node;
    return getFunctors().callLeave(node->getCore(), this);
}

} // namespace osg
