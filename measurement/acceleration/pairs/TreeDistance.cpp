#include <measurement/acceleration/pairs/TreeDistance.h>

#include <measurement/acceleration/pairs/NearPairs.h>
#include <measurement/acceleration/pairs/OrderedSearch.h>
#include <measurement/acceleration/pairs/PairSelection.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace tesk::measurement::acceleration {

namespace {

/// Enough for small objects. Large ones are left to NearPairs once the roots are split, which the search needs anyway.
std::uint64_t calcPatience(const LazyTree& tree1, const LazyTree& tree2) {
    const std::uint64_t triangleCount = std::uint64_t(tree1.getMesh().triangleCount) + tree2.getMesh().triangleCount;
    return 10000 + triangleCount / 16;
}

} // namespace

TreeDistance::TreeDistance(LazyTree& tree1, LazyTree& tree2, float bound)
    : TreeDistance(tree1, tree2, bound, calcPatience(tree1, tree2), NearPairs::calcMostPairs(tree1, tree2)) {}

TreeDistance::TreeDistance(LazyTree& tree1, LazyTree& tree2, float bound, std::uint64_t patience,
                           std::size_t mostNearPairs)
    : mostPairs(mostNearPairs) {
    OrderedSearch search(tree1, tree2, bound);
    const float firstBound = search.getSquaredDistance();
    ranLong = !search.run(patience);
    // Lines that have been written cannot be taken back.
    fromNearPairs =
        ranLong && !search.hasTouched() && searchNearPairs(tree1, tree2, firstBound, search.getSquaredDistance());
    if (isNearPairsGivenUp()) search.run(std::numeric_limits<std::uint64_t>::max());
    nodePairCount += search.getNodePairCount();
    trianglePairCount += search.getTrianglePairCount();
    if (!fromNearPairs) take(search);
}

bool TreeDistance::searchNearPairs(LazyTree& tree1, LazyTree& tree2, float bound, float bestKnown) {
    if (!std::isfinite(bestKnown)) return false;
    const std::optional<NearTriangles> near = findNearPairs(tree1, tree2, bestKnown);
    if (!near) return false;
    const PairSelection selection(*near, tree1, tree2, bestKnown);
    if (!selection.isSufficient()) return false;
    OrderedSearch search(tree1, tree2, bound, &selection);
    search.run(std::numeric_limits<std::uint64_t>::max());
    nodePairCount += search.getNodePairCount();
    trianglePairCount += search.getTrianglePairCount();
    if (!search.isCertain()) return false;
    take(search);
    return true;
}

std::optional<NearTriangles> TreeDistance::findNearPairs(const LazyTree& tree1, const LazyTree& tree2, float bound) {
    NearPairs near(tree1, tree2, bound, mostPairs);
    const bool isFound = near.find();
    trianglePairCount += near.getTrianglePairCount();
    if (!isFound) return std::nullopt;
    nearPairsCurtailed = near.isCurtailed();
    return std::move(near).takeResult();
}

void TreeDistance::take(const OrderedSearch& search) {
    closestPoint1 = search.getClosestPoint1();
    closestPoint2 = search.getClosestPoint2();
    squaredDistance = search.getSquaredDistance();
}

} // namespace tesk::measurement::acceleration
