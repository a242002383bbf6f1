#include <measurement/acceleration/points/PointSearch.h>

#include <measurement/acceleration/SpatialOrder.h>
#include <measurement/acceleration/Workers.h>
#include <measurement/acceleration/points/PrimitiveGroup.h>
#include <measurement/acceleration/points/SideCodes.h>
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
/// Scattered ones take longer to look at, and each is eight places.
constexpr std::size_t scatteredGroupsPerProbe = 512;

constexpr std::size_t groupsWorthAThread = 1 << 14;

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

namespace {

/// A scan for the nearest to one point.
template <class Primitive> class Scan {
public:
    Scan(const PrimitiveArray<Primitive>& array, const osg::Pnt3f& queryPoint, std::uint64_t rankOfFirst)
        : primitives(array), point(queryPoint), firstRank(rankOfFirst) {}

    void run(NearestPrimitive& nearest) const {
        const bool isRandom = isScattered(primitives);
        const std::size_t step = isRandom ? scatteredGroupsPerProbe : groupsPerProbe;
        for (std::size_t group = step; group < groupsFor(primitives.count); group += step)
            look({primitives, nullptr, group}, nearest);
        // One code for each position, so that these must not be far too many.
        const bool isWorthCodes = isRandom && primitives.positionCount / 4 <= primitives.count;
        const SideCodes codes(primitives.positions, isWorthCodes ? primitives.positionCount : 0, point,
                              nearest.squaredDistance);
        // What is found depends on how good the best is at first no more than on the order.
        std::vector<NearestPrimitive> found(chunkCount(groupsFor(primitives.count), groupsWorthAThread), nearest);
        runInChunks(groupsFor(primitives.count), groupsWorthAThread,
                    [&](std::size_t chunk, std::size_t begin, std::size_t end) {
                        if (codes.areThere())
                            scanByCodes(codes, begin, end, found[chunk]);
                        else
                            scanByGroups(begin, end, found[chunk]);
                    });
        for (const NearestPrimitive& some : found)
            if (nearest.givesWayTo(some.squaredDistance, some.rank)) nearest = some;
    }

private:
    void look(const PrimitiveGroup<Primitive>& group, NearestPrimitive& nearest) const {
        measureNear(primitives, group, point, firstRank, set, nearest);
    }

    void scanByGroups(std::size_t begin, std::size_t end, NearestPrimitive& nearest) const {
        const Quad quadPoint{point[0], point[1], point[2]};
        for (std::size_t i = begin; i < end; ++i) {
            const PrimitiveGroup<Primitive> group(primitives, nullptr, i);
            if (!(lowerBound(group.getBox(), quadPoint) > nearest.squaredDistance)) look(group, nearest);
        }
    }

    void scanByCodes(const SideCodes& codes, std::size_t begin, std::size_t end, NearestPrimitive& nearest) const {
        std::uint32_t numbers[2 * primitivesAtOnce];
        std::size_t count = 0;
        const std::size_t last = std::min(end * groupSize, primitives.count);
        for (std::size_t i = begin * groupSize; i < last; i += primitivesAtOnce) {
            count += codes.findNear<cornerCount<Primitive>>(primitives.corners, i, std::min(i + primitivesAtOnce, last),
                                                            numbers + count);
            if (count >= primitivesAtOnce) lookAt(numbers, count, nearest);
        }
        lookAt(numbers, count, nearest);
    }

    /// Looks at those of the numbers, for which there must be place to be as many as fill groups, and takes them away.
    void lookAt(std::uint32_t* numbers, std::size_t& count, NearestPrimitive& nearest) const {
        if (count == 0) return;
        const std::size_t groupCount = groupsFor(count);
        std::fill(numbers + count, numbers + groupCount * groupSize, numbers[count - 1]);
        for (std::size_t group = 0; group < groupCount; ++group) {
            const std::size_t ahead = std::min(group + groupsAhead, groupCount - 1);
            PrimitiveGroup<Primitive>(primitives, numbers, ahead).fetchPositions();
            look({primitives, numbers, group}, nearest);
        }
        count = 0;
    }

    static constexpr std::size_t primitivesAtOnce = 256;

    const PrimitiveArray<Primitive>& primitives;
    const osg::Pnt3f& point;
    std::uint64_t firstRank;
    InstructionSet set = getInstructionSet();
};

} // namespace

template <class Primitive>
void scan(const PrimitiveArray<Primitive>& primitives, const osg::Pnt3f& point, std::uint64_t firstRank,
          NearestPrimitive& nearest) {
    Scan<Primitive>(primitives, point, firstRank).run(nearest);
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
