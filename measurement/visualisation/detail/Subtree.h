#pragma once

#include <OpenSG/OSGMaterial.h>
#include <OpenSG/OSGNode.h>

#include <measurement/scene/detail/NodeGeometry.h>

#include <initializer_list>

/// The making of the subtrees that visualisations show. New nodes have no references yet; every edit is ended.
namespace tesk::measurement::detail {

osg::NodePtr createParent(const osg::NodeCorePtr& core, std::initializer_list<osg::NodePtr> children);

/// A node with a new core of that class.
template <class Core>
osg::NodePtr createParent(std::initializer_list<osg::NodePtr> children, typename Core::Ptr* coreOut = nullptr) {
    const typename Core::Ptr core = Core::create();
    if (coreOut) *coreOut = core;
    return createParent(osg::NodeCorePtr(core), children);
}

/// A geometry without content.
osg::NodePtr createGeometry(const osg::MaterialPtr& material);

/// New nodes on the cores of a subtree, which stays as it is.
osg::NodePtr shareCores(const osg::NodePtr& subtree);

/// Hides a node that must not be drawn by a traversal mask of 0, and shows it again when it may; another mask, which
/// may be the host's, stays.
void showIf(bool isDrawable, const osg::NodePtr& node);

} // namespace tesk::measurement::detail
