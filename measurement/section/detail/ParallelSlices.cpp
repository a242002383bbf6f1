#include <measurement/section/detail/ParallelSlices.h>

#include <measurement/scene/detail/SubtreeWalk.h>
#include <measurement/scene/detail/WorldBox.h>
#include <measurement/section/detail/PlaneCut.h>

#include <algorithm>

namespace tesk::measurement::detail {

namespace {

constexpr osg::UInt32 fullTraversalMask = 0xFFFFFFFF;

} // namespace

void ParallelSlices::cutBlock(const float* planeOffsets, std::size_t planeCount) {
    offsets = planeOffsets;
    blockSize = std::min({planeCount, likelyBlockSize, acceleration::PlaneRanks::maximumPlaneCount});
    createSlicesRec();
    while (isBlockTooLarge()) {
        blockSize /= 2;
        createSlicesRec();
    }
    // The next planes may well have a few more segments than these.
    likelyBlockSize =
        std::max<std::size_t>(1, segmentLimit * 3 / 4 * blockSize / std::max<std::size_t>(1, segmentCount));
}

void ParallelSlices::createSlicesRec() {
    sortPlanes();
    clearOutlines();
    visitSubtreeInheriting(root, PlaneRange{0, order.size()}, [this](const osg::NodePtr& node, PlaneRange& range) {
        if (node->getTravMask() != fullTraversalMask || isBlockTooLarge()) return false;
        range = planesThrough(getWorldBox(node).bounds, range);
        if (range.isEmpty()) return false;
        addSlices(node, range);
        return true;
    });
}

void ParallelSlices::clearOutlines() {
    std::size_t capacity = 0;
    for (std::vector<Segment>& outline : outlines) {
        outline.clear();
        capacity += outline.capacity();
    }
    // Memory that has been used once is faster than new memory, but blocks may need most of it for different planes.
    if (capacity > 2 * segmentLimit) outlines.clear();
    outlines.resize(std::max(outlines.size(), blockSize));
    segmentCount = 0;
}

void ParallelSlices::sortPlanes() {
    order.clear();
    // Nothing is below a plane whose offset is NaN, so that it cuts nothing.
    for (std::size_t plane = 0; plane < blockSize; ++plane)
        if (offsets[plane] == offsets[plane]) order.push_back(plane);
    std::sort(order.begin(), order.end(), [this](std::size_t a, std::size_t b) { return offsets[a] > offsets[b]; });
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

void ParallelSlices::addSlices(const osg::NodePtr& node, const PlaneRange& range) {
    const osg::GeometryPtr geometry = getGeometry(node);
    const PositionArray positions(geometry);
    if (positions.count == 0) return;
    const osg::Matrix toWorld = node->getToWorld();
    localPlanes.clear();
    localOffsets.clear();
    for (std::size_t i = range.first; i < range.last; ++i) {
        localPlanes.push_back(order[i]);
        // The order stays, as the same is added to all. NaN comes from adding opposite infinities, and then the others
        // become infinite: minus infinity behind NaN, infinity in front of it.
        localOffsets.push_back(Plane(Plane(normal, offsets[order[i]]), toWorld).offset);
    }
    const osg::Vec3f localNormal = Plane(Plane(normal, 0.0f), toWorld).normal;
    ranks.assign(localNormal, localOffsets, positions.points, positions.count, countCorners(geometry));
    withTriangles(node, [&](auto triangle) { addGenericSlices(triangle, localNormal, toWorld); });
}

template <class Iterator>
void ParallelSlices::addGenericSlices(Iterator triangle, const osg::Vec3f& localNormal, const osg::Matrix& toWorld) {
    for (; !triangle.isAtEnd(); ++triangle) {
        const PlaneRange range = ranks.planesThrough(triangle.getPositionIndex(0), triangle.getPositionIndex(1),
                                                     triangle.getPositionIndex(2));
        if (range.isEmpty()) continue;
        Corner corners[3];
        float heights[3];
        for (osg::UInt32 i = 0; i < 3; ++i) {
            corners[i].position = triangle.getPosition(i);
            heights[i] = dot(localNormal, osg::Vec3f(corners[i].position));
        }
        for (std::size_t local = range.first; local < range.last; ++local) {
            for (int i = 0; i < 3; ++i) corners[i].distance = heights[i] + localOffsets[local];
            std::vector<Segment>& outline = outlines[localPlanes[local]];
            const std::size_t sizeBefore = outline.size();
            cutTriangle(corners, toWorld, outline);
            segmentCount += outline.size() - sizeBefore;
        }
        if (isBlockTooLarge()) return;
    }
}

} // namespace tesk::measurement::detail
