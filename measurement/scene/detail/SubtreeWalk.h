#pragma once

#include <measurement/scene/ChildEnumerator.h>

#include <vector>

namespace tesk::measurement::detail {

/// Calls enter(node, state) for the node and for everything below it that ChildEnumerator enumerates, depth first,
/// parents before their children, with a copy of what the call for the parent left in its state. What is below a node
/// is left out when enter says false. Null nodes are passed over. The walk keeps its own stack, so that the depth of a
/// scene is limited by memory alone.
template <class State, class Predicate>
void visitSubtreeInheriting(const osg::NodePtr& root, const State& rootState, Predicate enter) {
    struct Level {
        ChildEnumerator children;
        State state;
    };
    std::vector<Level> open;
    const auto visit = [&](const osg::NodePtr& node, State state) {
        if (node != osg::NullFC && enter(node, state)) open.push_back({ChildEnumerator(node), state});
    };
    visit(root, rootState);
    while (!open.empty()) {
        Level& level = open.back();
        if (level.children.hasNext())
            visit(level.children.next(), level.state);
        else
            open.pop_back();
    }
}

/// The same walk without a state: calls enter(node).
template <class Predicate> void visitSubtreeWhere(const osg::NodePtr& node, Predicate enter) {
    struct Nothing {};
    visitSubtreeInheriting(node, Nothing(), [&](const osg::NodePtr& visited, Nothing&) { return enter(visited); });
}

/// The same walk over everything: calls visit(node).
template <class Visitor> void visitSubtree(const osg::NodePtr& node, Visitor visit) {
    visitSubtreeWhere(node, [&](const osg::NodePtr& visited) {
        visit(visited);
        return true;
    });
}

} // namespace tesk::measurement::detail
