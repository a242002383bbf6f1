#include <measurement/section/detail/ParallelSlices.h>

#include <measurement/acceleration/Workers.h>
#include <measurement/scene/detail/SubtreeWalk.h>
#include <measurement/scene/detail/WorldBox.h>
#include <measurement/section/detail/PlaneCut.h>

#include <algorithm>
#include <limits>

namespace tesk::measurement::detail {

namespace {

constexpr osg::UInt32 fullTraversalMask = 0xFFFFFFFF;

constexpr std::size_t nowhere = static_cast<std::size_t>(-1);

/// Outlines of about so many segments are made at a time: enough to share, few enough to stay near the processor.
constexpr std::size_t crossingsAtOnce = 1 << 17;
constexpr std::size_t crossingsWorthAThread = 1 << 14;

} // namespace

void ParallelSlices::cutBlock(const float* planeOffsets, std::size_t planeCount) {
    offsets = planeOffsets;
    blockSize = std::min({planeCount, likelyBlockSize, acceleration::PlaneRanks::maximumPlaneCount});
    cutTriangles();
    while (isBlockTooLarge()) {
        blockSize /= 2;
        cutTriangles();
    }
    cuts.sortByPlane(order.size());
    // The next planes may well cut a few more triangles than these.
    likelyBlockSize =
        std::max<std::size_t>(1, crossingLimit * 3 / 4 * blockSize / std::max<std::size_t>(1, cuts.countCrossings()));
}

void ParallelSlices::cutTriangles() {
    sortPlanes();
    cuts.clear();
    visitSubtreeInheriting(root, PlaneRange{0, order.size()}, [this](const osg::NodePtr& node, PlaneRange& range) {
        if (node->getTravMask() != fullTraversalMask || isBlockTooLarge()) return false;
        range = planesThrough(getWorldBox(node).bounds, range);
        if (range.isEmpty()) return false;
        addCuts(node, range);
        return true;
    });
}

void ParallelSlices::sortPlanes() {
    order.clear();
    // Nothing is below a plane whose offset is NaN, so that it cuts nothing.
    for (std::size_t plane = 0; plane < blockSize; ++plane)
        if (offsets[plane] == offsets[plane]) order.push_back(plane);
    std::sort(order.begin(), order.end(), [this](std::size_t a, std::size_t b) { return offsets[a] > offsets[b]; });
    places.assign(blockSize, nowhere);
    for (std::size_t place = 0; place < order.size(); ++place) places[order[place]] = place;
}

acceleration::PlaneRange ParallelSlices::planesThrough(const Box& box, const PlaneRange& range) const {
    const BoxHeights heights(box, normal);
    // A rounded sum never falls where a summand grows: the planes that the box is above come first, those that it is
    // below last. With infinities there may be NaN in front of the first or behind the last, and none is left out then.
    const auto begin = order.begin(), last = begin + static_cast<std::ptrdiff_t>(range.last);
    const auto firstKept = std::partition_point(begin + static_cast<std::ptrdiff_t>(range.first), last,
                                                [&](std::size_t plane) { return heights.areAbove(offsets[plane]); });
    const auto lastKept =
        std::partition_point(firstKept, last, [&](std::size_t plane) { return !heights.areBelow(offsets[plane]); });
    return {static_cast<std::size_t>(firstKept - begin), static_cast<std::size_t>(lastKept - begin)};
}

void ParallelSlices::addCuts(const osg::NodePtr& node, const PlaneRange& range) {
    if (getGeometry(node) == osg::NullFC) return;
    const osg::Matrix toWorld = node->getToWorld();
    localOffsets.clear();
    // The order stays, as the same is added to all. NaN comes from adding opposite infinities, and then the others
    // become infinite: minus infinity behind NaN, infinity in front of it.
    for (std::size_t place = range.first; place < range.last; ++place)
        localOffsets.push_back(Plane(Plane(normal, offsets[order[place]]), toWorld).offset);
    const std::size_t limit = blockSize > 1 ? crossingLimit : std::numeric_limits<std::size_t>::max();
    cuts.add(node, Plane(Plane(normal, 0.0f), toWorld).normal, localOffsets, range, limit);
}

std::size_t ParallelSlices::makeOutlines(std::size_t firstPlane) {
    std::size_t count = 1, crossings = countCrossings(firstPlane);
    for (; firstPlane + count < blockSize && crossings < crossingsAtOnce; ++count)
        crossings += countCrossings(firstPlane + count);
    clearOutlines(count);
    const std::size_t planesWorthAThread = 1 + count * crossingsWorthAThread / std::max<std::size_t>(1, crossings);
    acceleration::runInChunks(count, planesWorthAThread, [&](std::size_t, std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) {
            const std::size_t plane = firstPlane + i;
            if (places[plane] != nowhere) cuts.makeOutline(places[plane], normal, offsets[plane], outlines[i]);
        }
    });
    return count;
}

std::size_t ParallelSlices::countCrossings(std::size_t plane) const {
    return places[plane] == nowhere ? 0 : cuts.countCrossings(places[plane]);
}

void ParallelSlices::clearOutlines(std::size_t count) {
    std::size_t capacity = 0;
    for (std::vector<Segment>& outline : outlines) {
        outline.clear();
        capacity += outline.capacity();
    }
    // Memory that has been used once is faster than new memory, but the next planes may need most of it elsewhere.
    if (capacity > 4 * crossingsAtOnce) outlines.clear();
    outlines.resize(std::max(outlines.size(), count));
}

} // namespace tesk::measurement::detail
