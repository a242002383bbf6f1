#include <measurement/acceleration/outlines/SegmentPairs.h>

#include <measurement/acceleration/SpatialOrder.h>
#include <measurement/acceleration/pairs/TrianglePairFilter.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tesk::measurement::acceleration {

namespace {

constexpr std::size_t groupSize = GroupTree::groupSize;
constexpr std::size_t mostPairs = 1 << 17;

/// The lane of the smallest bound among those whose bits are set, of which there must be one.
std::size_t findSmallest(const float (&bounds)[8], unsigned lanes) {
    std::size_t smallest = 8;
    for (std::size_t lane = 0; lane < 8; ++lane)
        if ((lanes >> lane & 1) != 0 && (smallest == 8 || bounds[lane] < bounds[smallest])) smallest = lane;
    return smallest;
}

unsigned firstLanes(std::size_t count) { return count < 8 ? (1u << count) - 1 : 0xff; }

} // namespace

SegmentPairs::SegmentPairs(const TriangleMesh& outline, const GroupTree& object) : mesh(outline), tree(object) {
    reach.largestCoordinate = tree.getLargestCoordinate();
    order = orderAlongCurve(mesh.positions, mesh.corners, 3, mesh.triangleCount);
    createBundles();
}

void SegmentPairs::createBundles() {
    bundles.resize((order.size() + groupSize - 1) / groupSize);
    for (std::size_t i = 0; i < order.size(); ++i) {
        Bundle& bundle = bundles[i / groupSize];
        if (bundle.size == 0) bundle.first = i;
        const BlurredBox one{quadBoxOf(mesh, order[i]), calcBlur(getSegment(order[i]))};
        bundle.each.set(bundle.size++, one);
        bundle.all.box.grow(one.box);
        bundle.all.blur = std::max(bundle.all.blur, one.blur);
        if (!std::isfinite(one.blur)) continue;
        const Quad farthest = larger(absolute(one.box.min), absolute(one.box.max));
        reach.largestCoordinate = std::max({reach.largestCoordinate, farthest[0], farthest[1], farthest[2]});
    }
}

bool SegmentPairs::find(float bound, float least, std::uint32_t likelyTriangle) {
    pairs.clear();
    touches = false;
    leastLimit = std::max(least, detail::touchingDistance) * (1.0f + NearPairs::margin);
    reach.limit = std::max(bound * (1.0f + NearPairs::margin), leastLimit);
    if (!(reach.limit < detail::largestFloat) || tree.getLevelCount() == 0) return false;
    testsLeft = 65536 + 64 * order.size() + tree.getMesh().triangleCount / 8;

    startWith(likelyTriangle);
    // The limit is brought down first, then the nearest come first: all this leaves less to look at.
    std::vector<std::pair<float, std::size_t>> nearest;
    for (std::size_t bundle = 0; bundle < bundles.size(); ++bundle) nearest.emplace_back(probe(bundle), bundle);
    std::sort(nearest.begin(), nearest.end());
    pairs.clear();
    for (const auto& bundle : nearest) search(bundle.second, tree.getLevelCount() - 1, 0);
    if (isOver()) return false;
    removeBeyondLimit();
    std::sort(pairs.begin(), pairs.end(),
              [](const TrianglePair& a, const TrianglePair& b) { return a.squaredDistance < b.squaredDistance; });
    return true;
}

void SegmentPairs::startWith(std::uint32_t likelyTriangle) {
    const QuadBox likely = quadBoxOf(tree.getMesh(), likelyTriangle);
    const auto isNearer = [&](const Bundle& a, const Bundle& b) {
        return squaredGap(a.all.box, likely) < squaredGap(b.all.box, likely);
    };
    const auto nearest = std::min_element(bundles.begin(), bundles.end(), isNearer);
    const PackedTriangle triangle(tree.getMesh()[likelyTriangle]);
    for (std::size_t i = 0; i < nearest->size; ++i)
        lowerLimit(measureTrianglePair(PackedTriangle(mesh[order[nearest->first + i]]), triangle, instructionSet));
}

float SegmentPairs::probe(std::size_t bundle) {
    std::size_t next = 0;
    for (std::size_t level = tree.getLevelCount(); level-- > 0;) {
        float bounds[8]{};
        const unsigned open = findBoxes(bundle, level, next, bounds);
        if (open == 0) return bounds[findSmallest(bounds, firstLanes(tree.getBoxCount(level) - groupSize * next))];
        next = next * groupSize + findSmallest(bounds, open);
    }
    return testGroup(bundle, next);
}

void SegmentPairs::search(std::size_t bundle, std::size_t level, std::size_t block) {
    float bounds[8];
    for (unsigned open = findBoxes(bundle, level, block, bounds); open != 0;) {
        const std::size_t nearest = findSmallest(bounds, open);
        if (bounds[nearest] > reach.limit) return;
        open &= ~(1u << nearest);
        if (level > 0)
            search(bundle, level - 1, block * groupSize + nearest);
        else
            testGroup(bundle, block * groupSize + nearest);
    }
}

unsigned SegmentPairs::findBoxes(std::size_t bundle, std::size_t level, std::size_t block, float (&bounds)[8]) {
    if (isOver()) return 0;
    --testsLeft;
    const unsigned near = findNear(tree.getBoxes(level, block), bundles[bundle].all, reach, instructionSet, bounds);
    return near & firstLanes(tree.getBoxCount(level) - groupSize * block);
}

float SegmentPairs::testGroup(std::size_t number, std::size_t group) {
    const Bundle& bundle = bundles[number];
    const BlurredBox box = tree.getBoxes(0, group / groupSize).get(group % groupSize);
    float bounds[8];
    unsigned near = findNear(bundle.each, box, reach, instructionSet, bounds) & firstLanes(bundle.size);
    float smallest = bounds[findSmallest(bounds, firstLanes(bundle.size))];
    if (near == 0) return smallest;

    const std::size_t size = tree.getSize(group);
    PrimitiveLanes<Triangle> triangles;
    for (std::size_t lane = 0; lane < groupSize; ++lane)
        for (std::size_t which = 0; which < 3; ++which)
            triangles.corners[which].set(static_cast<int>(lane),
                                         tree.getCorner(group, std::min(lane, size - 1), which));
    smallest = detail::largestFloat;
    for (std::size_t i = 0; i < bundle.size; ++i) {
        if ((near >> i & 1) == 0) continue;
        const std::uint32_t segment = order[bundle.first + i];
        float distances[8];
        const float blur = std::max(box.blur, bundle.each.blurs[i]);
        const unsigned found = findNear(triangles, getSegment(segment), blur, reach, instructionSet, distances);
        for (std::size_t lane = 0; lane < size; ++lane) {
            if ((found >> lane & 1) == 0) continue;
            pairs.push_back({segment, tree.getNumber(group, lane), distances[lane]});
            lowerLimit(distances[lane]);
            smallest = std::min(smallest, distances[lane]);
        }
    }
    if (pairs.size() > mostPairs) removeBeyondLimit();
    return smallest;
}

void SegmentPairs::lowerLimit(float squaredDistance) {
    touches = touches || squaredDistance <= detail::touchingDistance;
    reach.limit = std::min(reach.limit, std::max(squaredDistance * (1.0f + NearPairs::margin), leastLimit));
}

bool SegmentPairs::isOver() const { return touches || testsLeft == 0 || pairs.size() > mostPairs; }

void SegmentPairs::removeBeyondLimit() {
    const auto isBeyond = [this](const TrianglePair& pair) {
        const QuadBox box = quadBoxOf(mesh, pair.first);
        return pair.squaredDistance > reach.limit &&
               distanceBounds(box, quadBoxOf(tree.getMesh(), pair.second)).upper > reach.limit;
    };
    pairs.erase(std::remove_if(pairs.begin(), pairs.end(), isBeyond), pairs.end());
}

} // namespace tesk::measurement::acceleration
