#include <measurement/acceleration/pairs/NearPairs.h>

#include <measurement/acceleration/Workers.h>
#include <measurement/acceleration/pairs/TrianglePairFilter.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace tesk::measurement::acceleration {

namespace {

/// Pairs of nodes that have no more groups are refined in depth, which spares the heap and keeps their triangles at
/// hand.
constexpr std::uint32_t mostGroupsInDepth = 32;
constexpr std::size_t mostWildTriangles = 256;

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

bool isNearer(const TrianglePair& a, const TrianglePair& b) { return a.squaredDistance < b.squaredDistance; }

/// Of length 1, for a direction of length 1.
Quad findPerpendicular(const Quad& direction) {
    const Quad axis = std::fabs(direction[0]) < 0.7f ? Quad{1.0f, 0.0f, 0.0f, 0.0f} : Quad{0.0f, 1.0f, 0.0f, 0.0f};
    const Quad perpendicular = cross(direction, axis);
    return perpendicular * (1.0f / std::sqrt(dot(perpendicular, perpendicular)));
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

std::uint64_t countTriangles(const LazyTree& tree1, const LazyTree& tree2) {
    return std::uint64_t(tree1.getMesh().triangleCount) + tree2.getMesh().triangleCount;
}

} // namespace

std::size_t NearPairs::calcMostPairs(const LazyTree& first, const LazyTree& second) {
    return std::max<std::size_t>(16384, countTriangles(first, second) / 4);
}

NearPairs::NearPairs(const LazyTree& first, const LazyTree& second, float bound, std::size_t most)
    : mostPairs(most), mostEffort(200000 + 100 * countTriangles(first, second)),
      limit(limitFor(std::min(bound, probe(first, second)))),
      largestCoordinate(std::max(largestCoordinateOf(boxOf(first)), largestCoordinateOf(boxOf(second)))),
      tree1(first.getMesh(), true), tree2(second.getMesh(), false) {
    const std::size_t least = std::min(first.getMesh().triangleCount, second.getMesh().triangleCount);
    const QuadBox &all1 = boxOf(first), &all2 = boxOf(second);
    const float farthest = calcFarthest(all1, all2);
    runBoth(
        least, LazyTree::trianglesWorthAThread, [&] { tree1.choose(all2, farthest); },
        [&] { tree2.choose(all1, farthest); });
    const QuadBox chosen1 = tree1.getBox(), chosen2 = tree2.getBox();
    runBoth(
        least, LazyTree::trianglesWorthAThread, [&] { tree1.build(chosen2, farthest); },
        [&] { tree2.build(chosen1, farthest); });
}

bool NearPairs::isWorthwhile() const {
    return !tree1.isEmpty() && !tree2.isEmpty() && tree1.getWildTriangles().size() <= mostWildTriangles &&
           tree2.getWildTriangles().size() <= mostWildTriangles;
}

bool NearPairs::find() {
    if (!isWorthwhile()) return false;
    insert(createCandidate(CompactTree::root, CompactTree::root));
    while (!candidates.empty() && !isOver()) {
        std::pop_heap(candidates.begin(), candidates.end(), ComesAfter());
        const Candidate candidate = candidates.back();
        candidates.pop_back();
        refine(candidate);
    }
    return !isOver();
}

NearTriangles NearPairs::takeResult() && {
    removeFarPairs();
    std::sort(pairs.begin(), pairs.end(), isNearer);
    const float completeLimit = std::min(keptLimit, limit / (1.0f + 0.5f * margin));
    return {std::move(pairs), completeLimit, tree1.getWildTriangles(), tree2.getWildTriangles()};
}

bool NearPairs::isOver() const { return effort > mostEffort || pairs.size() >= mostPairs; }

RoundingSlack NearPairs::calcSlack(const QuadBox& a, const QuadBox& b, float inverseSine) const {
    return {a, b, inverseSine, largestCoordinate};
}

float NearPairs::calcFarthest(const QuadBox& box1, const QuadBox& box2) const {
    const RoundingSlack slack = calcSlack(box1, box2, CompactTree::largestInverseSine);
    return std::max(slack.squaredMiss, limit + slack.ofSquare);
}

NearPairs::Candidate NearPairs::createCandidate(std::uint32_t node1, std::uint32_t node2) {
    ++effort;
    const CompactHull& a = tree1.getNode(node1).hull;
    const CompactHull& b = tree2.getNode(node2).hull;
    const RoundingSlack slack = calcSlack(a.box, b.box, std::max(a.inverseSine, b.inverseSine));
    float bound = slack.calcBound(squaredGapOf(a.box, b.box));
    for (const Quad* const normal : {&a.normal, &b.normal}) {
        if (bound > limit) break;
        bound = std::max(bound, slack.calcBound(squaredLess(gapAlongNormal(a, b, *normal), slack)));
    }
    return {bound, node1, node2};
}

void NearPairs::insert(const Candidate& candidate) {
    if (!(candidate.bound <= limit)) return;
    candidates.push_back(candidate);
    std::push_heap(candidates.begin(), candidates.end(), ComesAfter());
}

void NearPairs::refine(const Candidate& candidate) {
    // The limit may be lower by now.
    if (!(candidate.bound <= limit) || isOver()) return;
    tree1.open(candidate.node1);
    tree2.open(candidate.node2);
    const CompactTree::Node& a = tree1.getNode(candidate.node1);
    const CompactTree::Node& b = tree2.getNode(candidate.node2);
    const auto size = [](const CompactTree::Node& node) {
        const Quad extent = node.hull.box.max - node.hull.box.min;
        return dot(extent, extent);
    };
    const bool isSmall = a.end - a.begin + b.end - b.begin <= mostGroupsInDepth;
    if (a.children == 0 && b.children == 0) {
        testTriangles(tree1.getGroup(a), tree2.getGroup(b));
    } else if (b.children == 0 || (a.children != 0 && size(a) >= size(b))) {
        refineBoth(createCandidate(a.children, candidate.node2), createCandidate(a.children + 1, candidate.node2),
                   isSmall);
    } else {
        refineBoth(createCandidate(candidate.node1, b.children), createCandidate(candidate.node1, b.children + 1),
                   isSmall);
    }
}

void NearPairs::refineBoth(const Candidate& first, const Candidate& second, bool isSmall) {
    const bool isSecondNearer = second.bound < first.bound;
    const Candidate &nearer = isSecondNearer ? second : first, &farther = isSecondNearer ? first : second;
    if (isSmall) {
        refine(nearer);
        refine(farther);
    } else {
        insert(nearer);
        insert(farther);
    }
}

void NearPairs::testTriangles(const CompactTree::Group& group1, const CompactTree::Group& group2) {
    ++effort;
    const CompactHull &hull1 = group1.hull, &hull2 = group2.hull;
    const RoundingSlack slack = calcSlack(hull1.box, hull2.box, std::max(hull1.inverseSine, hull2.inverseSine));
    const Quad direction = findDiscGap(hull1, hull2).direction, aside = findPerpendicular(direction);
    const GroupGap gap{hull1.centre,
                       {direction, aside, cross(direction, aside)},
                       slack.ofLength,
                       std::max(slack.squaredMiss, limit + slack.ofSquare)};
    std::uint8_t near[8];
    findNear(cache1.get(tree1, group1), cache2.get(tree2, group2), gap, instructionSet, near);
    const unsigned lanes = (2u << (group2.end - group2.begin - 1)) - 1;
    for (std::uint32_t i = group1.begin; i < group1.end; ++i)
        for (unsigned bits = near[i - group1.begin] & lanes; bits != 0; bits &= bits - 1)
            testPair(tree1.getNumbers()[i], tree2.getNumbers()[group2.begin + unsigned(__builtin_ctz(bits))]);
}

const TriangleGroup& NearPairs::GroupCache::get(const CompactTree& tree, const CompactTree::Group& group) {
    Entry& entry = entries[group.begin / 8 % entries.size()];
    if (entry.begin != group.begin) entry = {group.begin, createTriangleGroup(tree, group)};
    return entry.triangles;
}

void NearPairs::testPair(std::uint32_t first, std::uint32_t second) {
    ++effort;
    ++trianglePairCount;
    const PackedTriangle packed1(tree1.getMesh()[first]), packed2(tree2.getMesh()[second]);
    const TrianglePair pair{first, second, measureTrianglePair(packed1, packed2, instructionSet)};
    if (!(pair.squaredDistance <= limit)) return;
    limit = std::min(limit, limitFor(pair.squaredDistance));
    if (!isNear(pair)) return;
    if (pairs.size() + 1 >= mostPairs) makeRoom();
    pairs.push_back(pair);
}

bool NearPairs::isNear(const TrianglePair& pair) const {
    const auto calcFarthestCorners = [&] {
        return distanceBounds(quadBoxOf(tree1.getMesh(), pair.first), quadBoxOf(tree2.getMesh(), pair.second)).upper;
    };
    return pair.squaredDistance <= limit && (pair.squaredDistance <= keptLimit || calcFarthestCorners() <= keptLimit);
}

void NearPairs::removeFarPairs() {
    pairs.erase(std::remove_if(pairs.begin(), pairs.end(), [this](const TrianglePair& pair) { return !isNear(pair); }),
                pairs.end());
}

// What is left is at most as much as fits; of ties with the smallest value none may go.
void NearPairs::makeRoom() {
    removeFarPairs();
    if (pairs.size() <= mostPairs / 2) return;
    const auto quartile = pairs.begin() + std::ptrdiff_t(pairs.size() / 4);
    std::nth_element(pairs.begin(), quartile, pairs.end(), isNearer);
    keptLimit = std::min(keptLimit, std::max(quartile->squaredDistance, detail::touchingDistance));
    removeFarPairs();
}

} // namespace tesk::measurement::acceleration
