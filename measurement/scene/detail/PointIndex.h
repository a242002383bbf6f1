#pragma once

#include <OpenSG/OSGNode.h>

#include <measurement/acceleration/points/PointSearch.h>

#include <deque>
#include <vector>

namespace tesk::measurement::detail {

/// A PointObjectDistanceCalculator for one object and many points, with the same results.
///
/// Points that follow each other should be near each other: every search begins with the primitive that won last. The
/// scene must not change as long as the index is used.
///
/// Cost: built once, in time linear in the primitives. A search looks at few of these unless the object is far smaller
/// than its distance from the point, when rounding leaves nothing to tell them apart by; it looks at every node. Memory
/// is that of GeometryArrays and acceleration::PointTree for each geometry, be it the core of many nodes, and some
/// bytes for each node.
class PointIndex {
public:
    explicit PointIndex(const osg::NodePtr& object);
    ~PointIndex();

    void calc(const osg::Pnt3f& point);

    const osg::Pnt3f& getPoint() const { return closestPoint; }

    /// How many trees of triangles or lines are in the order of the geometry's indices, and how many had to be sorted.
    struct TreeCounts {
        std::size_t inIndexOrder = 0;
        std::size_t sorted = 0;
    };
    TreeCounts countTrees() const;

private:
    struct Trees;
    class Part;

    /// One for each geometry.
    std::deque<Trees> trees;
    /// One for each node with a geometry, in the order of the walk.
    std::vector<Part> parts;
    osg::Pnt3f closestPoint{0.0f, 0.0f, 0.0f};
    acceleration::NearestPrimitive nearest;
};

} // namespace tesk::measurement::detail
