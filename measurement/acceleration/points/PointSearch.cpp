#include <measurement/acceleration/points/PointSearch.h>

#include <measurement/acceleration/SpatialOrder.h>
#include <measurement/acceleration/points/PrimitiveGroup.h>
#include <measurement/geometry/DistanceSegmentPoint.h>
#include <measurement/geometry/DistanceTrianglePoint.h>
#include <measurement/geometry/Validity.h>

#include <algorithm>
#include <random>

namespace tesk::measurement::acceleration {

namespace {

/// A tree that has looked at so many times its groups has spent what sorting costs.
constexpr std::size_t visitsWorthSorting = 4;

/// So many groups show whether an array is scattered. One of few more is not worth asking.
constexpr std::size_t sampledGroups = 64;

/// Of so many groups the scan looks at one first, for a good value to pass over most others by.
constexpr std::size_t groupsPerProbe = 64;

/// So many groups ahead what a pass over sorted groups reads is asked for.
constexpr std::size_t groupsAhead = 4;

DistanceTrianglePoint query(const PrimitiveArray<Triangle>& triangles, std::size_t i, const osg::Pnt3f& point) {
    return {{triangles.corner(i, 0), triangles.corner(i, 1), triangles.corner(i, 2)}, osg::Vec3f(point)};
}

DistanceSegmentPoint query(const PrimitiveArray<Segment>& segments, std::size_t i, const osg::Pnt3f& point) {
    return {{segments.corner(i, 0), segments.corner(i, 1)}, point};
}

/// A degenerate triangle may pair the distance 0 with a point that is not a number. Lines are taken as they are.
bool isAnswer(const DistanceTrianglePoint& answer) { return isValid(answer.getClosestPoint()); }
bool isAnswer(const DistanceSegmentPoint&) { return true; }

/// Looks at those of the group that may be as near as the best.
template <class Primitive>
void measureNear(const PrimitiveArray<Primitive>& primitives, const PrimitiveGroup<Primitive>& group,
                 const osg::Pnt3f& point, std::uint64_t firstRank, InstructionSet set, NearestPrimitive& nearest) {
    const unsigned near = findNear(group.getLanes(), point, nearest.squaredDistance, set);
    for (std::size_t lane = 0; lane < group.size(); ++lane)
        if (near >> lane & 1) measure(primitives, group[lane], point, firstRank, nearest);
}

float halfArea(const QuadBox& box) {
    const Quad size = box.max - box.min;
    return size[0] * size[1] + size[1] * size[2] + size[2] * size[0];
}

/// Whether groups, as they are in the array, are spread all over it: some of them together have more area than what is
/// around them all.
template <class Primitive> bool isScattered(const PrimitiveArray<Primitive>& primitives) {
    const std::size_t groupCount = groupsFor(primitives.count);
    if (groupCount < 16 * sampledGroups) return false;
    // At random lest they follow the rows of a mesh.
    std::minstd_rand random;
    QuadBox whole;
    float area = 0.0f;
    for (std::size_t sample = 0; sample < sampledGroups; ++sample) {
        const QuadBox box = PrimitiveGroup<Primitive>(primitives, nullptr, random() % groupCount).getBox();
        whole.grow(box);
        area += halfArea(box);
    }
    return area > halfArea(whole);
}

} // namespace

template <class Primitive>
void measure(const PrimitiveArray<Primitive>& primitives, std::size_t number, const osg::Pnt3f& point,
             std::uint64_t firstRank, NearestPrimitive& nearest) {
    const auto answer = query(primitives, number, point);
    const std::uint64_t rank = firstRank + number;
    if (nearest.givesWayTo(answer.getSquaredDistance(), rank) && isAnswer(answer))
        nearest = {answer.getSquaredDistance(), rank, answer.getClosestPoint(), true};
}

template <class Primitive>
void scan(const PrimitiveArray<Primitive>& primitives, const osg::Pnt3f& point, std::uint64_t firstRank,
          NearestPrimitive& nearest) {
    const InstructionSet set = getInstructionSet();
    const std::size_t groupCount = groupsFor(primitives.count);
    const auto look = [&](std::size_t group) {
        measureNear(primitives, {primitives, nullptr, group}, point, firstRank, set, nearest);
    };
    for (std::size_t group = groupsPerProbe; group < groupCount; group += groupsPerProbe) look(group);
    const Quad quadPoint{point[0], point[1], point[2]};
    for (std::size_t group = 0; group < groupCount; ++group)
        if (!(lowerBound(PrimitiveGroup<Primitive>(primitives, nullptr, group).getBox(), quadPoint) >
              nearest.squaredDistance))
            look(group);
}

template <class Primitive> struct PointTree<Primitive>::Query {
    const osg::Pnt3f& point;
    std::uint64_t firstRank;
    InstructionSet set;
};

template <class Primitive> PointTree<Primitive>::PointTree(const PrimitiveArray<Primitive>& array) : primitives(array) {
    if (isScattered(primitives))
        sort();
    else
        build();
}

template <class Primitive> PrimitiveGroup<Primitive> PointTree<Primitive>::getGroup(std::size_t group) const {
    return {primitives, isSorted() ? order.data() : nullptr, group};
}

template <class Primitive> void PointTree<Primitive>::build() {
    levels.clear();
    if (primitives.count == 0) return;
    addLevel(groupsFor(primitives.count), [this](std::size_t group) {
        if (isSorted()) {
            getGroup(group + 2 * groupsAhead).fetchCorners();
            getGroup(group + groupsAhead).fetchPositions();
        }
        return getGroup(group).getBox();
    });
    while (levels.back().size() > 1) {
        addLevel(levels.back().size(), [this](std::size_t block) {
            const auto& [low, high] = levels.back()[block];
            QuadBox box;
            for (std::size_t lane = 0; lane < groupSize; ++lane)
                box.grow({Quad{low.x[lane], low.y[lane], low.z[lane]}, Quad{high.x[lane], high.y[lane], high.z[lane]}});
            return box;
        });
    }
}

template <class Primitive>
template <class BoxOf>
void PointTree<Primitive>::addLevel(std::size_t boxCount, BoxOf boxOf) {
    const std::size_t blockCount = groupsFor(boxCount);
    std::vector<BoxLanes> blocks;
    blocks.reserve(blockCount);
    for (std::size_t block = 0; block < blockCount; ++block) {
        BoxLanes& lanes = blocks.emplace_back();
        for (std::size_t lane = 0; lane < groupSize; ++lane) {
            const std::size_t i = block * groupSize + lane;
            const QuadBox box = i < boxCount ? boxOf(i) : QuadBox();
            lanes.low.set(static_cast<int>(lane), {box.min[0], box.min[1], box.min[2]});
            lanes.high.set(static_cast<int>(lane), {box.max[0], box.max[1], box.max[2]});
        }
    }
    levels.push_back(std::move(blocks));
}

template <class Primitive> void PointTree<Primitive>::sort() {
    order = orderAlongCurve(primitives.positions, primitives.corners, cornerCount<Primitive>, primitives.count);
    build();
}

template <class Primitive>
void PointTree<Primitive>::search(const osg::Pnt3f& point, std::uint64_t firstRank, NearestPrimitive& nearest) {
    if (levels.empty()) return;
    if (!isSorted() && visitedGroups > visitsWorthSorting * groupsFor(primitives.count)) sort();
    searchBoxes({point, firstRank, getInstructionSet()}, levels.size() - 1, 0, nearest);
}

template <class Primitive>
void PointTree<Primitive>::searchBoxes(const Query& query, std::size_t level, std::size_t block,
                                       NearestPrimitive& nearest) {
    float bounds[groupSize];
    unsigned open = findNear(levels[level][block], query.point, nearest.squaredDistance, query.set, bounds);
    const std::size_t first = block * groupSize;
    const std::size_t boxCount = level > 0 ? levels[level - 1].size() : groupsFor(primitives.count);
    if (boxCount - first < groupSize) open &= (1u << (boxCount - first)) - 1;
    while (open != 0) {
        std::size_t next = groupSize;
        // The nearest box first. Bounds that are NaN come last.
        for (std::size_t lane = 0; lane < groupSize; ++lane)
            if ((open >> lane & 1) && (next == groupSize || bounds[lane] < bounds[next])) next = lane;
        open &= ~(1u << next);
        if (bounds[next] > nearest.squaredDistance) continue;
        if (level > 0)
            searchBoxes(query, level - 1, first + next, nearest);
        else
            searchGroup(query, first + next, nearest);
    }
}

template <class Primitive>
void PointTree<Primitive>::searchGroup(const Query& query, std::size_t group, NearestPrimitive& nearest) {
    ++visitedGroups;
    measureNear(primitives, getGroup(group), query.point, query.firstRank, query.set, nearest);
}

template class PointTree<Triangle>;
template class PointTree<Segment>;
template void measure(const PrimitiveArray<Triangle>&, std::size_t, const osg::Pnt3f&, std::uint64_t,
                      NearestPrimitive&);
template void measure(const PrimitiveArray<Segment>&, std::size_t, const osg::Pnt3f&, std::uint64_t, NearestPrimitive&);
template void scan(const PrimitiveArray<Triangle>&, const osg::Pnt3f&, std::uint64_t, NearestPrimitive&);
template void scan(const PrimitiveArray<Segment>&, const osg::Pnt3f&, std::uint64_t, NearestPrimitive&);

} // namespace tesk::measurement::acceleration
