#include <measurement/acceleration/NearPairs.h>

#include <measurement/acceleration/TrianglePairFilter.h>

#include <algorithm>

namespace tesk::measurement::acceleration {

namespace {

constexpr std::size_t mostPairs = 8192;
constexpr std::size_t mostWildTriangles = 256;

bool comesAfter(float bound1, float bound2) { return bound1 > bound2; }

} // namespace

NearPairs::NearPairs(const TriangleMesh& first, const TriangleMesh& second, float bound)
    : tree1(first, true), tree2(second, false), limit(std::max(bound, detail::touchingDistance) * (1.0f + margin)) {}

bool NearPairs::isWorthwhile() const {
    return !tree1.isEmpty() && !tree2.isEmpty() && tree1.getWildTriangles().size() <= mostWildTriangles &&
           tree2.getWildTriangles().size() <= mostWildTriangles;
}

bool NearPairs::find() {
    if (!isWorthwhile()) return false;
    for (const CompactTree* tree : {&tree1, &tree2}) {
        const QuadBox& box = tree->getNode(0).box;
        const Quad reach = larger(absolute(box.min), absolute(box.max));
        largestCoordinate = std::max({largestCoordinate, reach[0], reach[1], reach[2]});
    }
    const std::uint64_t mostTrianglePairs =
        100000 + std::uint64_t(8) * (tree1.getMesh().triangleCount + tree2.getMesh().triangleCount);
    const auto laterOf = [](const Candidate& a, const Candidate& b) { return comesAfter(a.bound, b.bound); };
    insert(0, 0);
    while (!candidates.empty() && candidates.front().bound <= limit) {
        std::pop_heap(candidates.begin(), candidates.end(), laterOf);
        const Candidate candidate = candidates.back();
        candidates.pop_back();
        refine(candidate);
        if (pairs.size() > mostPairs) removeBeyondLimit();
        const bool isTouching = limit <= detail::touchingDistance * (1.0f + margin);
        if (isTouching || pairs.size() > mostPairs || trianglePairCount + candidates.size() > mostTrianglePairs)
            return false;
    }
    removeBeyondLimit();
    std::sort(pairs.begin(), pairs.end(),
              [](const TrianglePair& a, const TrianglePair& b) { return a.squaredDistance < b.squaredDistance; });
    return true;
}

// What the query may fall short of the distance between two boxes by rounding. The size of its operands is at most
// three times the reach, the distance of the farthest corners; each value is a sum of a few products of them, each
// rounded by 2^-24 of itself. And a line may seem to pierce a triangle that it misses by as much as the coordinates are
// rounded, the more the thinner the triangle is.
float NearPairs::calcBound(const QuadBox& box1, const QuadBox& box2, float inverseSine) const {
    constexpr float rounding = 4e-6f;
    const Quad gap = positiveOrZero(larger(box1.min - box2.max, box2.min - box1.max));
    const Quad reach = larger(absolute(box1.max - box2.min), absolute(box2.max - box1.min));
    const float squaredGap = sum(gap * gap), squaredReach = 9.0f * sum(reach * reach);
    const float miss = rounding * (std::sqrt(squaredReach) + largestCoordinate) * inverseSine;
    return squaredGap > miss * miss ? squaredGap - rounding * squaredReach : 0.0f;
}

void NearPairs::insert(std::uint32_t node1, std::uint32_t node2) {
    const CompactTree::Node& a = tree1.getNode(node1);
    const CompactTree::Node& b = tree2.getNode(node2);
    const float bound = calcBound(a.box, b.box, std::max(a.inverseSine, b.inverseSine));
    if (!(bound <= limit)) return;
    candidates.push_back({bound, node1, node2});
    std::push_heap(candidates.begin(), candidates.end(),
                   [](const Candidate& x, const Candidate& y) { return comesAfter(x.bound, y.bound); });
}

void NearPairs::refine(const Candidate& candidate) {
    tree1.open(candidate.node1);
    tree2.open(candidate.node2);
    const CompactTree::Node& a = tree1.getNode(candidate.node1);
    const CompactTree::Node& b = tree2.getNode(candidate.node2);
    const auto size = [](const CompactTree::Node& node) {
        return sum((node.box.max - node.box.min) * Quad{1, 1, 1, 0});
    };
    if (a.children == 0 && b.children == 0) {
        testTriangles(a, b);
    } else if (b.children == 0 || (a.children != 0 && size(a) >= size(b))) {
        insert(a.children, candidate.node2);
        insert(a.children + 1, candidate.node2);
    } else {
        insert(candidate.node1, b.children);
        insert(candidate.node1, b.children + 1);
    }
}

void NearPairs::testTriangles(const CompactTree::Node& node1, const CompactTree::Node& node2) {
    for (std::uint32_t i = node1.begin; i < node1.end; ++i) {
        const std::uint32_t first = tree1.getNumbers()[i];
        const QuadBox box1 = quadBoxOf(tree1.getMesh(), first);
        const PackedTriangle packed1(tree1.getMesh()[first]);
        for (std::uint32_t k = node2.begin; k < node2.end; ++k) {
            const std::uint32_t second = tree2.getNumbers()[k];
            const float inverseSine = std::max(tree1.getInverseSine(first), tree2.getInverseSine(second));
            if (!(calcBound(box1, quadBoxOf(tree2.getMesh(), second), inverseSine) <= limit)) continue;
            ++trianglePairCount;
            const float value = measureTrianglePair(packed1, PackedTriangle(tree2.getMesh()[second]), instructionSet);
            if (!(value <= limit)) continue;
            pairs.push_back({first, second, value});
            limit = std::min(limit, std::max(value, detail::touchingDistance) * (1.0f + margin));
        }
    }
}

void NearPairs::removeBeyondLimit() {
    const auto isBeyond = [this](const TrianglePair& pair) { return pair.squaredDistance > limit; };
    pairs.erase(std::remove_if(pairs.begin(), pairs.end(), isBeyond), pairs.end());
}

} // namespace tesk::measurement::acceleration
