#pragma once

#include <measurement/scene/ChildEnumerator.h>

#include <vector>

namespace tesk::measurement::detail {

/// Calls visit(node) for the node and for everything below it that ChildEnumerator enumerates,
/// depth first, parents before their children. Null nodes are passed over. The walk keeps its own
/// stack, so that the depth of a scene is limited by memory alone.
template <class Visitor> void visitSubtree(const osg::NodePtr& node, Visitor visit) {
    if (node == osg::NullFC) return;
    visit(node);
    std::vector<ChildEnumerator> open{ChildEnumerator(node)};
    while (!open.empty()) {
        if (!open.back().hasNext()) {
            open.pop_back();
            continue;
        }
        const osg::NodePtr child = open.back().next();
        if (child == osg::NullFC) continue;
        visit(child);
        open.emplace_back(child);
    }
}

} // namespace tesk::measurement::detail
