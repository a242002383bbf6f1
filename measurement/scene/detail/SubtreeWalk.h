#pragma once

#include <measurement/scene/ChildEnumerator.h>

#include <vector>

namespace tesk::measurement::detail {

/// Calls enter(node) for the node and for everything below it that ChildEnumerator enumerates, depth
/// first, parents before their children. What is below a node is left out when enter says false.
/// Null nodes are passed over. The walk keeps its own stack, so that the depth of a scene is limited
/// by memory alone.
template <class Predicate> void visitSubtreeWhere(const osg::NodePtr& node, Predicate enter) {
    if (node == osg::NullFC || !enter(node)) return;
    std::vector<ChildEnumerator> open{ChildEnumerator(node)};
    while (!open.empty()) {
        if (!open.back().hasNext()) {
            open.pop_back();
            continue;
        }
        const osg::NodePtr child = open.back().next();
        if (child != osg::NullFC && enter(child)) open.emplace_back(child);
    }
}

/// The same walk over everything: calls visit(node).
template <class Visitor> void visitSubtree(const osg::NodePtr& node, Visitor visit) {
    visitSubtreeWhere(node, [&](const osg::NodePtr& visited) {
        visit(visited);
        return true;
    });
}

} // namespace tesk::measurement::detail
