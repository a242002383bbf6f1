#pragma once

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

namespace tesk::measurement::detail {

/// A new node with a new osg::Group core, marked changed. Nobody holds it yet.
osg::NodePtr createGroupNode();

/// Adds or removes a child in an edit of the parent that names the changed fields.
void addChild(const osg::NodePtr& parent, const osg::NodePtr& child, osg::BitVector changed);
void removeChild(const osg::NodePtr& parent, const osg::NodePtr& child, osg::BitVector changed);

/// Shows a subtree with a traversal mask of all ones, hides it with 0.
void setShown(const osg::NodePtr& node, bool shown);
/// Whether the traversal mask is all ones; any other reads as hidden.
bool isShown(const osg::NodePtr& node);

/// Makes a holder refer to another node. Unlike assignment it holds the new node before it releases the old one, whose
/// end may be the new one's end: a child lives by its parent.
void hold(osg::RefPtr<osg::NodePtr>& holder, const osg::NodePtr& node);

} // namespace tesk::measurement::detail
