#include <measurement/scene/detail/PointIndex.h>

#include <measurement/scene/detail/GeometryArrays.h>
#include <measurement/scene/detail/NodeGeometry.h>
#include <measurement/scene/detail/PrimitiveRank.h>
#include <measurement/scene/detail/SubtreeWalk.h>

#include <map>

namespace tesk::measurement::detail {

/// What is found once for a geometry, in its own frame.
struct PointIndex::Trees {
    explicit Trees(const osg::GeometryPtr& geometry)
        : arrays(geometry), triangles(arrays.getTriangles()), segments(arrays.getSegments()) {}

    GeometryArrays arrays;
    acceleration::PointTree<Triangle> triangles;
    acceleration::PointTree<Segment> segments;
};

class PointIndex::Part {
public:
    Part(const osg::NodePtr& node, Trees& partTrees, std::size_t partNumber)
        : number(partNumber), toWorld(node->getToWorld()), toLocal(toWorld), trees(&partTrees) {
        toLocal.invert();
    }

    osg::Pnt3f toLocalPoint(const osg::Pnt3f& point) const {
        osg::Pnt3f local;
        toLocal.multMatrixPnt(point, local);
        return local;
    }

    osg::Pnt3f toWorldPoint(const osg::Pnt3f& local) const {
        osg::Pnt3f world;
        toWorld.multMatrixPnt(local, world);
        return world;
    }

    /// Looks at a primitive of this part.
    void measure(std::uint64_t rank, const osg::Pnt3f& point, acceleration::NearestPrimitive& best) const {
        const osg::Pnt3f local = toLocalPoint(point);
        if (isSegment(rank))
            acceleration::measure(trees->arrays.getSegments(), primitiveOf(rank), local, rankOfSegments(number), best);
        else
            acceleration::measure(trees->arrays.getTriangles(), primitiveOf(rank), local, rankOfTriangles(number),
                                  best);
    }

    void search(const osg::Pnt3f& point, acceleration::NearestPrimitive& best) const {
        const osg::Pnt3f local = toLocalPoint(point);
        trees->triangles.search(local, rankOfTriangles(number), best);
        trees->segments.search(local, rankOfSegments(number), best);
    }

private:
    std::size_t number;
    osg::Matrix toWorld, toLocal;
    Trees* trees;
};

PointIndex::PointIndex(const osg::NodePtr& object) {
    std::map<const osg::Geometry*, Trees*> treesOf;
    visitSubtree(object, [&](const osg::NodePtr& visited) {
        const osg::GeometryPtr geometry = getGeometry(visited);
        if (!geometry) return;
        Trees*& found = treesOf[&*geometry];
        if (found == nullptr) found = &trees.emplace_back(geometry);
        parts.emplace_back(visited, *found, parts.size());
    });
}

PointIndex::~PointIndex() = default;

void PointIndex::calc(const osg::Pnt3f& point) {
    const acceleration::NearestPrimitive last = nearest;
    nearest = {};
    if (last.isFound) parts[geometryOf(last.rank)].measure(last.rank, point, nearest);
    for (const Part& part : parts) part.search(point, nearest);
    if (nearest.isFound) closestPoint = parts[geometryOf(nearest.rank)].toWorldPoint(nearest.point);
}

PointIndex::TreeCounts PointIndex::countTrees() const {
    TreeCounts counts;
    const auto add = [&counts](const auto& tree) {
        if (!tree.isEmpty()) ++(tree.isSorted() ? counts.sorted : counts.inIndexOrder);
    };
    for (const Trees& some : trees) {
        add(some.triangles);
        add(some.segments);
    }
    return counts;
}

} // namespace tesk::measurement::detail
