#include <measurement/acceleration/pairs/NearPairs.h>

#include <measurement/acceleration/Workers.h>
#include <measurement/acceleration/pairs/TrianglePairFilter.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace tesk::measurement::acceleration {

namespace {

constexpr std::size_t mostPairs = 16384;
constexpr std::size_t mostWildTriangles = 256;
constexpr std::size_t trianglesWorthAThread = 20000;

const QuadBox& boxOf(const LazyTree& tree) { return tree.getNode(LazyTree::root).box; }

float limitFor(float squaredDistance) {
    return std::max(squaredDistance, detail::touchingDistance) * (1.0f + NearPairs::margin);
}

/// The square of a gap of discs, taken less for rounding.
float squaredLess(const DiscGap& gap, const RoundingSlack& slack) {
    const float along = std::max(0.0f, gap.along - slack.ofLength),
                across = std::max(0.0f, gap.across - slack.ofLength);
    return along * along + across * across;
}

/// The triangle of a sample whose first corner is nearest.
std::uint32_t findNearest(const TriangleMesh& mesh, const Quad& point) {
    constexpr std::uint32_t sampleSize = 16384;
    const std::uint32_t step = mesh.triangleCount / sampleSize + 1;
    std::uint32_t nearest = 0;
    float best = std::numeric_limits<float>::infinity();
    for (std::uint32_t i = 0; i < mesh.triangleCount; i += step) {
        const Quad offset = toQuad(mesh.corner(i, 0)) - point;
        const float squaredDistance = dot(offset, offset);
        if (squaredDistance < best) {
            best = squaredDistance;
            nearest = i;
        }
    }
    return nearest;
}

/// The value of a pair of triangles that may well be near; infinity when there is none.
float probe(const LazyTree& tree1, const LazyTree& tree2) {
    const TriangleMesh &first = tree1.getMesh(), &second = tree2.getMesh();
    if (first.triangleCount == 0 || second.triangleCount == 0) return std::numeric_limits<float>::infinity();
    const QuadBox& box = boxOf(tree2);
    std::uint32_t triangle1 = findNearest(first, (box.min + box.max) * 0.5f);
    const std::uint32_t triangle2 = findNearest(second, toQuad(first.corner(triangle1, 0)));
    triangle1 = findNearest(first, toQuad(second.corner(triangle2, 0)));
    return measureTrianglePair(PackedTriangle(first[triangle1]), PackedTriangle(second[triangle2]),
                               getInstructionSet());
}

} // namespace

NearPairs::NearPairs(const LazyTree& first, const LazyTree& second, float bound)
    : limit(limitFor(std::min(bound, probe(first, second)))),
      largestCoordinate(std::max(largestCoordinateOf(boxOf(first)), largestCoordinateOf(boxOf(second)))),
      tree1(first.getMesh(), true), tree2(second.getMesh(), false) {
    const std::size_t least = std::min(first.getMesh().triangleCount, second.getMesh().triangleCount);
    const QuadBox &all1 = boxOf(first), &all2 = boxOf(second);
    const float farthest = calcFarthest(all1, all2);
    runBoth(
        least, trianglesWorthAThread, [&] { tree1.choose(all2, farthest); }, [&] { tree2.choose(all1, farthest); });
    const QuadBox chosen1 = tree1.getBox(), chosen2 = tree2.getBox();
    runBoth(
        least, trianglesWorthAThread, [&] { tree1.build(chosen2, farthest); }, [&] { tree2.build(chosen1, farthest); });
}

bool NearPairs::isWorthwhile() const {
    return !tree1.isEmpty() && !tree2.isEmpty() && tree1.getWildTriangles().size() <= mostWildTriangles &&
           tree2.getWildTriangles().size() <= mostWildTriangles;
}

bool NearPairs::find() {
    if (!isWorthwhile()) return false;
    const std::uint64_t triangleCount = std::uint64_t(tree1.getMesh().triangleCount) + tree2.getMesh().triangleCount;
    const std::uint64_t mostEffort = 200000 + triangleCount / 2;
    insert(CompactTree::root, CompactTree::root);
    while (!candidates.empty() && candidates.front().bound <= limit) {
        std::pop_heap(candidates.begin(), candidates.end(), ComesAfter());
        const Candidate candidate = candidates.back();
        candidates.pop_back();
        refine(candidate);
        if (pairs.size() > mostPairs) removeBeyondLimit();
        if (pairs.size() > mostPairs || effort > mostEffort) return false;
    }
    removeBeyondLimit();
    std::sort(pairs.begin(), pairs.end(),
              [](const TrianglePair& a, const TrianglePair& b) { return a.squaredDistance < b.squaredDistance; });
    return true;
}

RoundingSlack NearPairs::calcSlack(const QuadBox& a, const QuadBox& b, float inverseSine) const {
    return {a, b, inverseSine, largestCoordinate};
}

float NearPairs::calcFarthest(const QuadBox& box1, const QuadBox& box2) const {
    const RoundingSlack slack = calcSlack(box1, box2, CompactTree::largestInverseSine);
    return std::max(slack.squaredMiss, limit + slack.ofSquare);
}

void NearPairs::insert(std::uint32_t node1, std::uint32_t node2) {
    ++effort;
    const CompactHull& a = tree1.getNode(node1).hull;
    const CompactHull& b = tree2.getNode(node2).hull;
    const RoundingSlack slack = calcSlack(a.box, b.box, std::max(a.inverseSine, b.inverseSine));
    const float boxGap = squaredGapOf(a.box, b.box);
    if (!(slack.calcBound(boxGap) <= limit)) return;
    const float bound = slack.calcBound(std::max(boxGap, squaredLess(findDiscGap(a, b), slack)));
    if (!(bound <= limit)) return;
    candidates.push_back({bound, node1, node2});
    std::push_heap(candidates.begin(), candidates.end(), ComesAfter());
}

void NearPairs::refine(const Candidate& candidate) {
    tree1.open(candidate.node1);
    tree2.open(candidate.node2);
    const CompactTree::Node& a = tree1.getNode(candidate.node1);
    const CompactTree::Node& b = tree2.getNode(candidate.node2);
    const auto size = [](const CompactTree::Node& node) {
        const Quad extent = node.hull.box.max - node.hull.box.min;
        return dot(extent, extent);
    };
    if (a.children == 0 && b.children == 0) {
        testTriangles(tree1.getGroup(a), tree2.getGroup(b));
    } else if (b.children == 0 || (a.children != 0 && size(a) >= size(b))) {
        insert(a.children, candidate.node2);
        insert(a.children + 1, candidate.node2);
    } else {
        insert(candidate.node1, b.children);
        insert(candidate.node1, b.children + 1);
    }
}

void NearPairs::testTriangles(const CompactTree::Group& group1, const CompactTree::Group& group2) {
    const RoundingSlack slack =
        calcSlack(group1.hull.box, group2.hull.box, std::max(group1.hull.inverseSine, group2.hull.inverseSine));
    const Quad direction = findDiscGap(group1.hull, group2.hull).direction;
    const auto isNear = [&](const Operand& a, const Operand& b) {
        const float along = std::max(0.0f, b.range.low - a.range.high - slack.ofLength);
        return slack.calcBound(std::max(squaredGapOf(a.box, b.box), along * along)) <= limit;
    };
    ++effort;
    operands.clear();
    for (std::uint32_t k = group2.begin; k < group2.end; ++k)
        operands.emplace_back(tree2.getMesh(), tree2.getNumbers()[k], group1.hull.centre, direction);
    for (std::uint32_t i = group1.begin; i < group1.end; ++i) {
        const Operand first(tree1.getMesh(), tree1.getNumbers()[i], group1.hull.centre, direction);
        for (const Operand& second : operands)
            if (isNear(first, second)) testPair(first.triangle, second.triangle);
    }
}

NearPairs::Operand::Operand(const TriangleMesh& mesh, std::uint32_t number, const Quad& origin, const Quad& direction)
    : triangle(number) {
    const Quad p0 = toQuad(mesh.corner(number, 0)), p1 = toQuad(mesh.corner(number, 1)),
               p2 = toQuad(mesh.corner(number, 2));
    box = quadBoxOf(p0, p1, p2);
    const float h0 = dot(p0 - origin, direction), h1 = dot(p1 - origin, direction), h2 = dot(p2 - origin, direction);
    range = {std::min({h0, h1, h2}), std::max({h0, h1, h2})};
}

void NearPairs::testPair(std::uint32_t first, std::uint32_t second) {
    ++effort;
    ++trianglePairCount;
    const PackedTriangle packed1(tree1.getMesh()[first]), packed2(tree2.getMesh()[second]);
    const float value = measureTrianglePair(packed1, packed2, instructionSet);
    if (!(value <= limit)) return;
    pairs.push_back({first, second, value});
    limit = std::min(limit, limitFor(value));
}

void NearPairs::removeBeyondLimit() {
    const auto isBeyond = [this](const TrianglePair& pair) { return pair.squaredDistance > limit; };
    pairs.erase(std::remove_if(pairs.begin(), pairs.end(), isBeyond), pairs.end());
}

} // namespace tesk::measurement::acceleration
