#pragma once

#include <OpenSG/OSGNode.h>

#include <string>
#include <utility>
#include <vector>

namespace tesk::platform::detail {

/// Whether a node's own name, or its core's if the node has none, is the given one.
bool bearsName(const osg::NodePtr& node, const std::string& name);

/// The nodes below a root, without the root, depth first and parents before their children. Keeps its own stack, so
/// that deep scenes are no danger; the scene must not change meanwhile.
///
/// \code
/// DocumentOrder walk(root);
/// while (walk.advance()) visit(walk.getNode());
/// \endcode
class DocumentOrder {
public:
    explicit DocumentOrder(const osg::NodePtr& root) : ancestors{{root, 0}} {}

    /// Goes to the next node; false when there is none left.
    bool advance();
    osg::NodePtr getNode() const { return ancestors.back().first; }

private:
    /// From the root to the current node, each with the number of its children that were entered.
    std::vector<std::pair<osg::NodePtr, osg::UInt32>> ancestors;
};

} // namespace tesk::platform::detail
