#pragma once

#include <measurement/acceleration/pairs/LazyTree.h>

#include <cstddef>
#include <cstdint>
#include <optional>

namespace tesk::measurement::acceleration {

class OrderedSearch;
struct NearTriangles;

/// What DistanceBoundingVolumeTree answers for the same triangles, to the bit, lines on standard output included.
///
/// The plain order of the search decides between equal distances, and its cuts may leave long thin nodes which all come
/// near those of a close-fitting surface. So a search that runs long is stopped. NearPairs then finds all pairs of
/// triangles that can matter, by another tree, and the search starts again on the pairs of nodes that hold one of them.
/// Why that changes nothing:
/// - Its threshold is at least the search's result: the nearest pair's distance or, if greater, a bound that may have
///   ruled out that pair.
/// - What is left out is farther than the threshold: the triangles, and the farthest corners of their nodes' boxes. Of
///   too many near pairs those are kept for which either is not so, see NearPairs.
/// - As long as the best value is above the threshold, no pair of nodes with a bound up to the threshold is ruled out
///   in either search, and those come first. So both meet in the same order what brings the best value to the
///   threshold, and from then on their best values are equal.
/// - The closest points are those of the last pair of triangles that was better. Where that is above the threshold, as
///   when the result is a bound that no pair reaches, the new search need not have met it, and does not count.
/// - Pairs with greater bounds, which only the new search might meet before, must not have that effect; where one does,
///   for rounding, and where NearPairs gives up, the first search goes on instead.
class TreeDistance {
public:
    TreeDistance(LazyTree& tree1, LazyTree& tree2, float bound);
    /// patience: the effort after which the search runs long, see OrderedSearch. mostNearPairs: see NearPairs.
    TreeDistance(LazyTree& tree1, LazyTree& tree2, float bound, std::uint64_t patience, std::size_t mostNearPairs);

    const osg::Pnt3f& getClosestPoint1() const { return closestPoint1; }
    const osg::Pnt3f& getClosestPoint2() const { return closestPoint2; }
    float getSquaredDistance() const { return squaredDistance; }

    std::uint64_t getNodePairCount() const { return nodePairCount; }
    std::uint64_t getTrianglePairCount() const { return trianglePairCount; }
    /// Whether the result is that of the second search.
    bool isFromNearPairs() const { return fromNearPairs; }
    /// Whether there were more of these than are kept.
    bool isNearPairsCurtailed() const { return nearPairsCurtailed; }
    /// Whether the first search ran long, but the near pairs were of no use.
    bool isNearPairsGivenUp() const { return ranLong && !fromNearPairs; }

private:
    /// bestKnown: what the first search has come to so far.
    bool searchNearPairs(LazyTree& tree1, LazyTree& tree2, float bound, float bestKnown);
    std::optional<NearTriangles> findNearPairs(const LazyTree& tree1, const LazyTree& tree2, float bound);
    void take(const OrderedSearch& search);

    std::size_t mostPairs;
    osg::Pnt3f closestPoint1;
    osg::Pnt3f closestPoint2;
    float squaredDistance = 0.0f;
    std::uint64_t nodePairCount = 0;
    std::uint64_t trianglePairCount = 0;
    bool ranLong = false;
    bool fromNearPairs = false;
    bool nearPairsCurtailed = false;
};

} // namespace tesk::measurement::acceleration
