#pragma once

#include <measurement/acceleration/points/PointDistanceFilter.h>
#include <measurement/geometry/detail/Constants.h>

#include <vector>

namespace tesk::measurement::acceleration {

/// Primitives by number, triangles or segments, their corners as numbers of shared positions. A view: the arrays
/// belong to others.
template <class Primitive> struct PrimitiveArray {
    const osg::Pnt3f* positions = nullptr;
    std::size_t positionCount = 0;
    /// All of positions that exist.
    const std::uint32_t* corners = nullptr;
    std::size_t count = 0;

    const osg::Pnt3f& corner(std::size_t primitive, std::size_t which) const {
        return positions[corners[cornerCount<Primitive> * primitive + which]];
    }
};

/// The best answer of a search for what is nearest a point.
///
/// Of equal squared distances the lowest rank wins, in whatever order primitives are looked at: so the search ends
/// where one through all primitives in the order of their ranks does that only gives way to a smaller distance.
struct NearestPrimitive {
    float squaredDistance = detail::largestFloat;
    /// Of nothing at first, and never above a found primitive's: such a distance does not win.
    std::uint64_t rank = 0;
    osg::Pnt3f point{0.0f, 0.0f, 0.0f};
    bool isFound = false;

    bool givesWayTo(float candidate, std::uint64_t candidateRank) const {
        return candidate < squaredDistance || (candidate == squaredDistance && candidateRank < rank);
    }
};

/// Looks at one primitive, whose rank is `firstRank` plus its number.
template <class Primitive>
void measure(const PrimitiveArray<Primitive>& primitives, std::size_t number, const osg::Pnt3f& point,
             std::uint64_t firstRank, NearestPrimitive& nearest);

/// Looks at all primitives, eight at a time as their box may hold something nearer; where they are scattered over the
/// array, only at those that have no side of a cube around the point between them and it, for which a byte for each
/// position is needed. Time linear in the primitives; several threads.
template <class Primitive>
void scan(const PrimitiveArray<Primitive>& primitives, const osg::Pnt3f& point, std::uint64_t firstRank,
          NearestPrimitive& nearest);

template <class Primitive> class PrimitiveGroup;

/// Boxes around every eight primitives that follow each other, around every eight of these boxes, and so on.
///
/// Primitives next to each other in an array are mostly next to each other in space as well. Where some show that they
/// are not, or where searches have looked at several times as many primitives as there are, the tree takes them in an
/// order along a curve through space. It has 3.5 bytes for each triangle, in that order 7.5, and 20 while it sorts.
template <class Primitive> class PointTree {
public:
    explicit PointTree(const PrimitiveArray<Primitive>& array);

    /// The result of scan(). A good answer to begin with makes it fast.
    void search(const osg::Pnt3f& point, std::uint64_t firstRank, NearestPrimitive& nearest);

    bool isEmpty() const { return levels.empty(); }
    bool isSorted() const { return !order.empty(); }

private:
    struct Query;

    PrimitiveGroup<Primitive> getGroup(std::size_t group) const;
    void build();
    /// The boxes, boxOf(number) each, in blocks of eight.
    template <class BoxOf> void addLevel(std::size_t boxCount, BoxOf boxOf);
    void sort();
    void searchBoxes(const Query& query, std::size_t level, std::size_t block, NearestPrimitive& nearest);
    void searchGroup(const Query& query, std::size_t group, NearestPrimitive& nearest);

    PrimitiveArray<Primitive> primitives;
    /// From the boxes of primitives, eight in a block, to the one block that holds all.
    std::vector<std::vector<BoxLanes>> levels;
    /// The primitives' numbers once they are sorted.
    std::vector<std::uint32_t> order;
    std::size_t visitedGroups = 0;
};

extern template class PointTree<Triangle>;
extern template class PointTree<Segment>;

} // namespace tesk::measurement::acceleration
