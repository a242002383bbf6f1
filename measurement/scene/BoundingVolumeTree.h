#pragma once

#include <OpenSG/OSGNode.h>

#include <measurement/scene/BoundingVolumeNode.h>

namespace tesk::measurement {

/// The world-space triangles of a scene node, or a list of segments, in a hierarchy of boxes: the
/// input of DistanceBoundingVolumeTree. The tree is its own root node.
///
/// A geometry gives the triangles of osg::TriangleIterator in its order, strips, fans and quads
/// taken apart, moved to world coordinates by the node's matrix (affine, no division by w). Lines
/// and points give nothing; neither does a triangle with an index beyond the positions. A segment
/// is stored as the triangle (start, end, end).
///
/// A null node, a node without geometry and an empty list give an empty tree. The tree copies what
/// it needs: the scene may change afterwards.
///
/// \code
/// BoundingVolumeTree tree;
/// tree.build(object, true);
/// if (!tree.isEmpty()) size = tree.getMax() - tree.getMin();
/// \endcode
class TESK_MEASUREMENT_EXPORT BoundingVolumeTree : public BoundingVolumeNode {
public:
    /// An empty tree.
    BoundingVolumeTree() = default;
    /// The node's own geometry, without its children's.
    explicit BoundingVolumeTree(const osg::NodePtr& node);

    using BoundingVolumeNode::build;
    /// Adds the node's geometry, with recursive that of its whole subtree as ChildEnumerator walks
    /// it, and splits. Clears nothing: building twice doubles every triangle.
    void build(const osg::NodePtr& node, bool recursive);
    /// Adds the segments, in one frame of the caller's choice, and splits. Clears nothing.
    void build(const std::list<Segment>& segments);

    const BoundingVolumeNode* getRoot() const { return this; }

protected:
    /// Pushes the triangles into the root without splitting it.
    void buildRec(const osg::NodePtr& node, bool recursive);

private:
    void pushGeometry(const osg::NodePtr& node);
};

} // namespace tesk::measurement
