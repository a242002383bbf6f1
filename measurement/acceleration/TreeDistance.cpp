#include <measurement/acceleration/TreeDistance.h>

#include <measurement/acceleration/NearPairs.h>
#include <measurement/acceleration/OrderedSearch.h>
#include <measurement/acceleration/PairSelection.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <chrono>
#define T(x) fprintf(stderr,"  %s: %.1f ms work %.2fn pops %lu\n",x,std::chrono::duration<double>(std::chrono::steady_clock::now()-t0).count()*1e3,double(tree1.work+tree2.work)/(tree1.getMesh().triangleCount+tree2.getMesh().triangleCount),nodePairCount);
#include <limits>

namespace tesk::measurement::acceleration {

namespace {

/// As many pairs of nodes as take about as long as NearPairs, and enough for objects that lie apart.
std::uint64_t calcPatience(const LazyTree& tree1, const LazyTree& tree2) {
    const std::uint64_t triangleCount = std::uint64_t(tree1.getMesh().triangleCount) + tree2.getMesh().triangleCount;
    return std::max<std::uint64_t>(4096, triangleCount / 16);
}

} // namespace

TreeDistance::TreeDistance(LazyTree& tree1, LazyTree& tree2, float bound)
    : TreeDistance(tree1, tree2, bound, calcPatience(tree1, tree2)) {}

TreeDistance::TreeDistance(LazyTree& tree1, LazyTree& tree2, float bound, std::uint64_t patience) {
    auto t0=std::chrono::steady_clock::now();
    OrderedSearch search(tree1, tree2, bound);
    const float firstBound = search.getSquaredDistance();
    const bool isOver = search.run(patience);
    T("ordered")
    // Lines that have been written cannot be taken back, and where objects touch the first search is the better one.
    fromNearPairs = !isOver && !search.hasTouched() && searchNearPairs(tree1, tree2, firstBound);
    if (!isOver && !fromNearPairs) search.run(std::numeric_limits<std::uint64_t>::max());
    nodePairCount += search.getNodePairCount();
    trianglePairCount += search.getTrianglePairCount();
    if (!fromNearPairs) take(search);
}

bool TreeDistance::searchNearPairs(LazyTree& tree1, LazyTree& tree2, float bound) {
    if (!std::isfinite(bound)) return false;
    auto t0=std::chrono::steady_clock::now(); NearPairs near(tree1.getMesh(), tree2.getMesh(), bound);
    T("near made")
    const bool isFound = near.find();
    trianglePairCount += near.getTrianglePairCount();
    if (!isFound) return false;
    T("near found")
    const PairSelection selection(near, tree1, tree2, bound);
    T("selected") fprintf(stderr,"  %zu pairs\n",near.getPairs().size());
    if (!selection.isSufficient()) return false;
    OrderedSearch search(tree1, tree2, bound, &selection);
    search.run(std::numeric_limits<std::uint64_t>::max());
    nodePairCount += search.getNodePairCount();
    trianglePairCount += search.getTrianglePairCount();
    T("replayed")
    if (search.isDoubtful() || search.getSquaredDistance() > selection.getThreshold()) return false;
    take(search);
    return true;
}

void TreeDistance::take(const OrderedSearch& search) {
    closestPoint1 = search.getClosestPoint1();
    closestPoint2 = search.getClosestPoint2();
    squaredDistance = search.getSquaredDistance();
}

} // namespace tesk::measurement::acceleration
