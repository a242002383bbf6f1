#pragma once

#include <OpenSG/OSGNode.h>

#include <measurement/Export.h>

namespace tesk::measurement {

/// The children of a scene node that a walk over its subtree visits, in index order: the one rule
/// for switches and levels of detail.
///
/// - Below an osg::Switch (or derived): the chosen child, all for osg::Switch::ALL, none for
///   osg::Switch::NONE. A choice that names no child gives the first child.
/// - Below an osg::DistanceLOD (or derived): the first child, the most detailed level; none when
///   its slot holds a null pointer.
/// - Below any other core, and without a core: every child.
///
/// Traversal masks are not looked at; a caller that skips hidden nodes does so itself. A null node
/// has no children. The range is decided on construction, in constant time: the children and the
/// choice must not change meanwhile. No reference to the node is counted.
///
/// \code
/// for (ChildEnumerator children(node); children.hasNext();) visit(children.next());
/// \endcode
class TESK_MEASUREMENT_EXPORT ChildEnumerator {
public:
    explicit ChildEnumerator(const osg::NodePtr& parent);

    bool hasNext() const { return current <= last; }
    /// The next child; a null pointer when its slot holds one. Call it only while hasNext().
    osg::NodePtr next();

private:
    void selectChoice(osg::Int32 choice, osg::Int32 childCount);

    osg::NodePtr node;
    osg::Int32 current = 0;
    osg::Int32 last = -1;
};

} // namespace tesk::measurement
