#include <measurement/acceleration/PointSearch.h>

#include <measurement/acceleration/SpatialOrder.h>
#include <measurement/geometry/DistanceSegmentPoint.h>
#include <measurement/geometry/DistanceTrianglePoint.h>
#include <measurement/geometry/Validity.h>

#include <algorithm>
#include <cstring>

namespace tesk::measurement::acceleration {

namespace {

constexpr std::size_t groupSize = 8;

/// A tree that has looked at so many times its groups has spent what sorting costs.
constexpr std::size_t visitsWorthSorting = 4;

/// Of so many groups the scan looks at one first, for a good value to pass over most others by.
constexpr std::size_t groupsPerProbe = 64;

std::size_t groupsFor(std::size_t count) { return (count + groupSize - 1) / groupSize; }

DistanceTrianglePoint query(const PrimitiveArray<Triangle>& triangles, std::size_t i, const osg::Pnt3f& point) {
    return {{triangles.corner(i, 0), triangles.corner(i, 1), triangles.corner(i, 2)}, osg::Vec3f(point)};
}

DistanceSegmentPoint query(const PrimitiveArray<Segment>& segments, std::size_t i, const osg::Pnt3f& point) {
    return {{segments.corner(i, 0), segments.corner(i, 1)}, point};
}

/// A degenerate triangle may pair the distance 0 with a point that is not a number. Lines are taken as they are.
bool isAnswer(const DistanceTrianglePoint& answer) { return isValid(answer.getClosestPoint()); }
bool isAnswer(const DistanceSegmentPoint&) { return true; }

template <class Primitive>
void measureAs(std::uint64_t rank, const PrimitiveArray<Primitive>& primitives, std::size_t number,
               const osg::Pnt3f& point, NearestPrimitive& nearest) {
    const auto answer = query(primitives, number, point);
    if (nearest.givesWayTo(answer.getSquaredDistance(), rank) && isAnswer(answer))
        nearest = {answer.getSquaredDistance(), rank, answer.getClosestPoint(), true};
}

/// Reads four numbers at once unless the fourth would lie behind the last position.
Quad loadQuad(const osg::Pnt3f* positions, std::size_t number, std::size_t last) {
    if (number == last) return toQuad(positions[number]);
    Quad quad;
    std::memcpy(&quad, static_cast<const void*>(positions + number), sizeof quad);
    return quad;
}

template <class Primitive> QuadBox boxOfGroup(const PrimitiveArray<Primitive>& primitives, std::size_t group) {
    constexpr std::size_t corners = cornerCount<Primitive>;
    const std::size_t first = group * groupSize, count = std::min(groupSize, primitives.count - first);
    const std::uint32_t* const numbers = primitives.corners + first * corners;
    const auto load = [&](std::size_t i) {
        const Quad position = loadQuad(primitives.positions, numbers[i], primitives.positionCount - 1);
        return QuadBox{position, position};
    };
    // Two boxes, so that not every operation waits for the one before.
    QuadBox box, other;
    std::size_t i = 0;
    for (; i + 2 <= count * corners; i += 2) {
        box.grow(load(i));
        other.grow(load(i + 1));
    }
    if (i < count * corners) box.grow(load(i));
    box.grow(other);
    return box;
}

/// Calls visit(number) for those of the group that may be as near as the best, in their order.
template <class Primitive, class Visitor>
void visitNear(const PrimitiveArray<Primitive>& primitives, std::size_t group, const osg::Pnt3f& point,
               const NearestPrimitive& nearest, InstructionSet set, Visitor visit) {
    const std::size_t first = group * groupSize, last = primitives.count - 1;
    PrimitiveLanes<Primitive> lanes;
    // Lanes too many repeat the last primitive, which is as near as itself.
    for (std::size_t lane = 0; lane < groupSize; ++lane)
        for (std::size_t which = 0; which < cornerCount<Primitive>; ++which)
            lanes.corners[which].set(static_cast<int>(lane), primitives.corner(std::min(first + lane, last), which));
    const unsigned near = findNear(lanes, point, nearest.squaredDistance, set);
    for (std::size_t lane = 0; lane < groupSize && first + lane <= last; ++lane)
        if (near >> lane & 1) visit(first + lane);
}

} // namespace

template <class Primitive>
void measure(const PrimitiveArray<Primitive>& primitives, std::size_t number, const osg::Pnt3f& point,
             std::uint64_t firstRank, NearestPrimitive& nearest) {
    measureAs(firstRank + number, primitives, number, point, nearest);
}

template <class Primitive>
void scan(const PrimitiveArray<Primitive>& primitives, const osg::Pnt3f& point, std::uint64_t firstRank,
          NearestPrimitive& nearest) {
    const InstructionSet set = getInstructionSet();
    const std::size_t groupCount = groupsFor(primitives.count);
    const auto look = [&](std::size_t group) {
        visitNear(primitives, group, point, nearest, set,
                  [&](std::size_t number) { measure(primitives, number, point, firstRank, nearest); });
    };
    for (std::size_t group = groupsPerProbe; group < groupCount; group += groupsPerProbe) look(group);
    const Quad quadPoint = toQuad(point);
    for (std::size_t group = 0; group < groupCount; ++group)
        if (!(lowerBound(boxOfGroup(primitives, group), quadPoint) > nearest.squaredDistance)) look(group);
}

template <class Primitive> struct PointTree<Primitive>::Query {
    const osg::Pnt3f& point;
    std::uint64_t firstRank;
    InstructionSet set;
};

template <class Primitive> PointTree<Primitive>::PointTree(const PrimitiveArray<Primitive>& array) : primitives(array) {
    build();
}

template <class Primitive> void PointTree<Primitive>::build() {
    levels.clear();
    std::size_t boxCount = groupsFor(primitives.count);
    if (boxCount == 0) return;
    std::vector<BoxLanes> blocks;
    const auto fill = [&blocks, &boxCount](auto boxOf) {
        const std::size_t blockCount = groupsFor(boxCount);
        blocks.reserve(blockCount);
        for (std::size_t block = 0; block < blockCount; ++block) {
            blocks.emplace_back();
            for (std::size_t lane = 0; lane < groupSize; ++lane) {
                const std::size_t i = block * groupSize + lane;
                const QuadBox box = i < boxCount ? boxOf(i) : QuadBox();
                blocks.back().low.set(static_cast<int>(lane), {box.min[0], box.min[1], box.min[2]});
                blocks.back().high.set(static_cast<int>(lane), {box.max[0], box.max[1], box.max[2]});
            }
        }
        boxCount = blockCount;
    };
    fill([this](std::size_t group) { return boxOfGroup(primitives, group); });
    levels.push_back(std::move(blocks));
    while (boxCount > 1) {
        blocks = {};
        fill([this](std::size_t block) {
            const BoxLanes& inner = levels.back()[block];
            QuadBox box;
            for (std::size_t lane = 0; lane < groupSize; ++lane)
                box.grow({Quad{inner.low.x[lane], inner.low.y[lane], inner.low.z[lane]},
                          Quad{inner.high.x[lane], inner.high.y[lane], inner.high.z[lane]}});
            return box;
        });
        levels.push_back(std::move(blocks));
    }
}

template <class Primitive> void PointTree<Primitive>::sort() {
    constexpr std::size_t corners = cornerCount<Primitive>;
    order = orderAlongCurve(primitives.positions, primitives.corners, corners, primitives.count);
    sortedCorners.reserve(primitives.count * corners);
    for (const std::uint32_t number : order)
        for (std::size_t which = 0; which < corners; ++which)
            sortedCorners.push_back(primitives.corners[number * corners + which]);
    primitives.corners = sortedCorners.data();
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
    visitNear(primitives, group, query.point, nearest, query.set, [&](std::size_t number) {
        const std::size_t original = isSorted() ? order[number] : number;
        measureAs(query.firstRank + original, primitives, number, query.point, nearest);
    });
}

template class PointTree<Triangle>;
template class PointTree<Segment>;
template void measure(const PrimitiveArray<Triangle>&, std::size_t, const osg::Pnt3f&, std::uint64_t,
                      NearestPrimitive&);
template void measure(const PrimitiveArray<Segment>&, std::size_t, const osg::Pnt3f&, std::uint64_t, NearestPrimitive&);
template void scan(const PrimitiveArray<Triangle>&, const osg::Pnt3f&, std::uint64_t, NearestPrimitive&);
template void scan(const PrimitiveArray<Segment>&, const osg::Pnt3f&, std::uint64_t, NearestPrimitive&);

} // namespace tesk::measurement::acceleration
