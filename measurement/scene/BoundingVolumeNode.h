#pragma once

#include <measurement/Export.h>
#include <measurement/geometry/Primitives.h>

#include <list>
#include <memory>
#include <optional>

namespace tesk::measurement {

/// A box with the triangles in it: one node of a two-way hierarchy of axis-aligned boxes.
///
/// Triangles are pushed into a node and then spread over its children by build(). A leaf keeps all
/// its triangles, an inner node those that straddle its split. A node's box encloses everything
/// that was pushed into it, its children's triangles included.
///
/// All triangles share one frame, the caller's choice. A node owns its children. A coordinate that
/// is NaN widens no box; when it is a first vertex's, the other two do not either.
class TESK_MEASUREMENT_EXPORT BoundingVolumeNode {
public:
    /// An empty box without children and triangles.
    BoundingVolumeNode();
    BoundingVolumeNode(const BoundingVolumeNode&) = delete;
    BoundingVolumeNode& operator=(const BoundingVolumeNode&) = delete;
    ~BoundingVolumeNode();

    /// Back to the state after construction.
    void clear();
    /// Whether the box is empty on the x axis, the only one that is looked at.
    bool isEmpty() const { return min[0] > max[0]; }
    void pushTriangle(const Triangle& triangle);

    /// Splits this node and its descendants until no node is worth splitting.
    ///
    /// A node with at most four triangles stays as it is. Otherwise each axis cuts the box in its
    /// middle: a triangle that spans half the box or more straddles, any other belongs to the side
    /// of its centroid. The axis that leaves the fewest straddling triangles is taken, the first of
    /// equals; none when every triangle straddles or all lie on one side. A NaN centroid is low.
    ///
    /// Linear in the number of triangles for each level. Scenes have few levels; input at the edge
    /// of the number range may have as many as triangles, which costs time but no call stack.
    void build();

    const osg::Pnt3f& getMin() const { return min; }
    const osg::Pnt3f& getMax() const { return max; }
    /// The child for the lower side of the split; null without one.
    const BoundingVolumeNode* getLow() const { return low.get(); }
    /// The child for the upper side of the split; null without one.
    const BoundingVolumeNode* getHigh() const { return high.get(); }
    /// The triangles kept in this node itself, in the order in which they were pushed.
    const std::list<Triangle>& getTriangles() const { return triangles; }

private:
    struct Split;

    static void destroy(std::unique_ptr<BoundingVolumeNode> node);
    bool split();
    std::optional<Split> chooseSplit() const;
    void grow(const Triangle& triangle);
    void moveTriangle(std::list<Triangle>::iterator triangle, std::unique_ptr<BoundingVolumeNode>& child);

    osg::Pnt3f min;
    osg::Pnt3f max;
    std::unique_ptr<BoundingVolumeNode> low;
    std::unique_ptr<BoundingVolumeNode> high;
    std::list<Triangle> triangles;
};

} // namespace tesk::measurement
