#pragma once

#include <platform/Export.h>

#include <OpenSG/OSGNode.h>

/// Marks and dismantles nodes.
class TESK_PLATFORM_EXPORT tkNodeUtils {
public:
    /// Marks a node as auxiliary geometry, not content of the user's scene, or takes the mark away. The mark lives and
    /// dies with the node and does not touch its name; a null node is ignored.
    static void setIsAuxiliaryNode(const osg::NodePtr& node, bool isAuxiliary);
    /// Whether that very node is marked; an ancestor's mark does not count. False for a null node.
    static bool isAuxiliaryNode(const osg::NodePtr& node);

    /// Takes a subtree apart: afterwards no node of it has children or a core.
    ///
    /// Nodes and cores that nobody else holds die; those held elsewhere stay, empty. Of the given node only the content
    /// goes: its references belong to the caller, who detaches it from its parent and releases it. Needs no stack in
    /// proportion to the depth. A null node is ignored.
    static void destroySubTree(const osg::NodePtr& node);
};
