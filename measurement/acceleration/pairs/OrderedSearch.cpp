#include <measurement/acceleration/pairs/OrderedSearch.h>

#include <measurement/acceleration/Workers.h>
#include <measurement/acceleration/pairs/PairSelection.h>
#include <measurement/acceleration/pairs/TrianglePairFilter.h>
#include <measurement/geometry/DistanceTriangleTriangle.h>

#include <algorithm>

namespace tesk::measurement::acceleration {

namespace {

constexpr std::size_t entriesWorthAThread = 10000;

} // namespace

OrderedSearch::OrderedSearch(LazyTree& first, LazyTree& second, float bound, const PairSelection* selected)
    : tree1(first), tree2(second), selection(selected),
      largestCoordinate(std::max(largestCoordinateOf(first.getNode(LazyTree::root).box),
                                 largestCoordinateOf(second.getNode(LazyTree::root).box))) {
    const NodePair roots{LazyTree::root, LazyTree::root};
    const detail::DistanceBounds bounds =
        distanceBounds(tree1.getNode(LazyTree::root).box, tree2.getNode(LazyTree::root).box);
    // A NaN on either side makes the result the upper bound.
    squaredDistance = bound <= bounds.upper ? bound : bounds.upper;
    settled = selection && squaredDistance <= selection->getThreshold();
    candidates.insert(bounds.lower, roots, squaredDistance);
}

bool OrderedSearch::run(std::uint64_t mostEffort) {
    const std::uint64_t effortBefore = getEffort();
    // All entries behind one that is not below the best would be dropped as well.
    while (!doubtful && !candidates.isEmpty() && candidates.getFirstBound() < squaredDistance) {
        if (getEffort() - effortBefore >= mostEffort) return false;
        pairBound = candidates.getFirstBound();
        const NodePair pair = candidates.takeFirst();
        ++nodePairCount;
        openBoth(pair);
        testTriangles(tree1.getNode(pair.node1), tree2.getNode(pair.node2));
        refineCandidates(pair);
    }
    return true;
}

void OrderedSearch::openBoth(const NodePair& pair) {
    const auto entryCount = [](const LazyTree::Node& node) { return node.isOpen ? 0 : node.entryCount; };
    // An object may be measured against itself.
    const std::size_t least =
        &tree1 == &tree2 ? 0 : std::min(entryCount(tree1.getNode(pair.node1)), entryCount(tree2.getNode(pair.node2)));
    runBoth(
        least, entriesWorthAThread, [&] { tree1.open(pair.node1); }, [&] { tree2.open(pair.node2); });
}

std::uint64_t OrderedSearch::getEffort() const {
    return nodePairCount * nodePairEffort + tree1.getSplitCount() + tree2.getSplitCount();
}

void OrderedSearch::insertPair(std::uint32_t node1, std::uint32_t node2) {
    if (node1 == LazyTree::none || node2 == LazyTree::none) return;
    const detail::DistanceBounds bounds = distanceBounds(tree1.getNode(node1).box, tree2.getNode(node2).box);
    if (!(bounds.lower < squaredDistance)) return;
    if (selection && !selection->touches(tree1.getNode(node1), tree2.getNode(node2))) return;
    if (isBeyondThreshold(bounds.lower) && std::min(bounds.lower, bounds.upper) <= selection->getThreshold())
        doubtful = true;
    // Deliberate: the bound may shrink below every distance of triangles, which leaves the points unset.
    if (bounds.upper < squaredDistance) squaredDistance = bounds.upper;
    candidates.insert(bounds.lower, {node1, node2}, squaredDistance);
}

void OrderedSearch::refineCandidates(const NodePair& pair) {
    const LazyTree::Node& node1 = tree1.getNode(pair.node1);
    const LazyTree::Node& node2 = tree2.getNode(pair.node2);
    if (node1.hasTriangles()) {
        insertPair(pair.node1, node2.low);
        insertPair(pair.node1, node2.high);
    }
    if (node2.hasTriangles()) {
        insertPair(node1.low, pair.node2);
        insertPair(node1.high, pair.node2);
    }
    if (!node1.hasTriangles() && !node2.hasTriangles()) {
        insertPair(node1.low, node2.low);
        insertPair(node1.low, node2.high);
        insertPair(node1.high, node2.low);
        insertPair(node1.high, node2.high);
    }
}

void OrderedSearch::testTriangles(const LazyTree::Node& node1, const LazyTree::Node& node2) {
    if (!node1.hasTriangles() || !node2.hasTriangles()) return;
    const std::uint32_t* const numbers1 = tree1.getNumbers(node1);
    const std::uint32_t* const numbers2 = tree2.getNumbers(node2) + node2.begin;
    const std::uint32_t count2 = node2.ownEnd - node2.begin;
    spans.clear();
    for (std::uint32_t i = node1.begin; i < node1.ownEnd; ++i) {
        const QuadBox box1 = quadBoxOf(tree1.getMesh(), numbers1[i]);
        const float nodeGap = squaredGap(box1, node2.box);
        if (!(nodeGap <= squaredDistance)) continue;
        if (spans.empty())
            for (std::uint32_t k = 0; k < count2; ++k) spans.emplace_back(tree2.getMesh(), numbers2[k]);
        const TriangleSpan span1(tree1.getMesh(), numbers1[i]);
        for (const TriangleSpan& span2 : spans) {
            const float gap = squaredGap(box1, span2.box);
            if (gap <= squaredDistance) testTrianglePair(span1, span2, std::max(gap, nodeGap));
        }
    }
}

void OrderedSearch::testTrianglePair(const TriangleSpan& span1, const TriangleSpan& span2, float gap) {
    // No line is written once the search has come to nothing.
    if (doubtful) return;
    ++trianglePairCount;
    if (isBeyond(span1, span2, std::max(squaredDistance, detail::touchingDistance), largestCoordinate)) return;
    const Triangle triangle1 = tree1.getMesh()[span1.number], triangle2 = tree2.getMesh()[span2.number];
    const PackedTriangle packed1(triangle1), packed2(triangle2);
    if (!mayMatter(packed1, packed2, squaredDistance, instructionSet)) return;
    const bool isTooFar =
        isBeyondThreshold(gap) && mayMatter(packed1, packed2, selection->getThreshold(), instructionSet);
    // A line might be written for triangles that touch without being better than the bound.
    const bool isUnsettled = selection && !settled && squaredDistance <= detail::touchingDistance;
    if (isTooFar || isUnsettled) {
        doubtful = true;
        return;
    }
    const DistanceTriangleTriangle query(triangle1, triangle2);
    touched = touched || query.getSquaredDistance() <= detail::touchingDistance;
    if (query.getSquaredDistance() < squaredDistance) {
        squaredDistance = query.getSquaredDistance();
        closestPoint1 = query.getClosestPoint1();
        closestPoint2 = query.getClosestPoint2();
        settled = settled || (selection && squaredDistance <= selection->getThreshold());
    }
}

// The full search may have been below the threshold by then, and dropped the pair that a restricted one looks into.
bool OrderedSearch::isBeyondThreshold(float lowerBound) const {
    return selection && squaredDistance > selection->getThreshold() &&
           std::max(pairBound, lowerBound) > selection->getThreshold();
}

} // namespace tesk::measurement::acceleration
