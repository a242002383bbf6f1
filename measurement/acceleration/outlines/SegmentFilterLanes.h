// One box against eight, and one segment against eight triangles. A kernel for CompileKernel.h.

#include <measurement/acceleration/vector/SegmentTriangleLanes.h>

struct LaneBoxes {
    LaneVectors low, high;
};

TESK_ALWAYS_INLINE LaneVectors absolute(const LaneVectors& a) { return {absolute(a.x), absolute(a.y), absolute(a.z)}; }

/// The squared distance of the farthest corners, as detail::distanceBounds() computes it.
TESK_ALWAYS_INLINE Lanes upperBounds(const LaneBoxes& a, const LaneBoxes& b) {
    const LaneVectors reach = highest(absolute(a.high - b.low), absolute(b.high - a.low));
    return dot(reach, reach);
}

TESK_ALWAYS_INLINE Lanes squaredGaps(const LaneBoxes& a, const LaneBoxes& b) {
    const LaneVectors apart = highest(a.low - b.high, b.low - a.high);
    const LaneVectors gap{max(0.0f, apart.x), max(0.0f, apart.y), max(0.0f, apart.z)};
    return dot(gap, gap);
}

/// Seen along the vectors from the triangles' middles to those of the segments. 0 where they overlap.
TESK_ALWAYS_INLINE Lanes squaredGaps(const LaneSegments& segment, const LaneTriangles& triangle) {
    // All vectors begin at the first corner, which keeps them short.
    const LaneVectors edge0 = triangle.p1 - triangle.p0, edge1 = triangle.p2 - triangle.p0;
    const LaneVectors start = segment.start - triangle.p0, end = segment.end - triangle.p0;
    const auto middle = [](const Lanes& s, const Lanes& e, const Lanes& t0, const Lanes& t1) {
        return 0.5f * (s + e) - 0.3333333f * (t0 + t1);
    };
    const LaneVectors direction{middle(start.x, end.x, edge0.x, edge1.x), middle(start.y, end.y, edge0.y, edge1.y),
                                middle(start.z, end.z, edge0.z, edge1.z)};
    const Lanes apart =
        min(dot(direction, start), dot(direction, end)) - max(max(dot(direction, edge0), dot(direction, edge1)), 0.0f);
    const Lanes squaredLength = dot(direction, direction);
    // In this order nothing overflows.
    return select((apart > 0.0f) & (squaredLength > 1e-30f), apart / squaredLength * apart, 0.0f);
}

// What the query may fall short of a gap by rounding, that of the gap included. The size of its operands is at most
// three times the distance of the farthest corners; each value is a sum of a few products of them, each rounded by
// 2^-24 of itself. And a line may seem to pierce a triangle that it misses by as much as the coordinates are rounded,
// the more the thinner the triangle is. 0 where a number is not
// finite, or so large that fourth powers may overflow.
TESK_ALWAYS_INLINE Lanes lowerBounds(const Lanes& squaredGap, const Lanes& upper, const Lanes& blur,
                                     float largestCoordinate) {
    constexpr float rounding = 5e-6f;
    const Lanes squaredSize = 9.0f * upper;
    // The square of a sum is at most twice the sum of the squares.
    const Lanes squaredMiss =
        (2.0f * rounding * rounding) * (squaredSize + largestCoordinate * largestCoordinate) * blur * blur;
    const Lanes bound = squaredGap - rounding * squaredSize;
    const Mask isSafe = squaredSize < RoundingSlack::largestSquaredReach;
    return select(isSafe & (squaredGap > squaredMiss) & (bound > 0.0f), bound, 0.0f);
}

inline unsigned findNearBoxes(const BlurredBoxLanes& lanes, const BlurredBox& other, const SearchReach& reach,
                              float* bounds) {
    const Quad &low = other.box.min, &high = other.box.max;
    const LaneBoxes a{loadVectors(lanes.boxes.low), loadVectors(lanes.boxes.high)};
    const LaneBoxes b{{low[0], low[1], low[2]}, {high[0], high[1], high[2]}};
    const Lanes all =
        lowerBounds(squaredGaps(a, b), upperBounds(a, b), max(load(lanes.blurs), other.blur), reach.largestCoordinate);
    store(all, bounds);
    return toBits(all <= reach.limit);
}

/// Of two edges, there and back, the query takes the nearer; none of length zero, at which it ends.
TESK_ALWAYS_INLINE Lanes measureSegment(const LaneSegments& segment, const LaneTriangles& triangles) {
    constexpr float none = 3.4028235e38f;
    const Lanes back = measureSegmentTriangle({segment.end, segment.start}, triangles);
    const Lanes there = measureSegmentTriangle(segment, triangles);
    const LaneVectors direction = segment.end - segment.start;
    const Lanes nearest = select(back < none, back, none);
    return select(dot(direction, direction) <= 0.0f, none, select(there < nearest, there, nearest));
}

inline unsigned findNearTriangles(const PrimitiveLanes<Triangle>& lanes, const Segment& s, float blur,
                                  const SearchReach& reach, float* distances) {
    const LaneTriangles triangles{loadVectors(lanes.corners[0]), loadVectors(lanes.corners[1]),
                                  loadVectors(lanes.corners[2])};
    const LaneSegments segment{{s.start[0], s.start[1], s.start[2]}, {s.end[0], s.end[1], s.end[2]}};
    const LaneBoxes a{lowest(segment.start, segment.end), highest(segment.start, segment.end)};
    const LaneBoxes b{lowest(lowest(triangles.p0, triangles.p1), triangles.p2),
                      highest(highest(triangles.p0, triangles.p1), triangles.p2)};
    const Lanes upper = upperBounds(a, b);
    const auto isInReach = [&](const Lanes& squaredGap) {
        return lowerBounds(squaredGap, upper, blur, reach.largestCoordinate) <= reach.limit;
    };
    // The second gap is far closer to the truth where both are small and slanted.
    Mask near = isInReach(squaredGaps(a, b));
    if (toBits(near) == 0) return 0;
    near = near & isInReach(squaredGaps(segment, triangles));
    if (toBits(near) == 0) return 0;
    const Lanes measured = measureSegment(segment, triangles);
    store(measured, distances);
    return toBits(near & ((measured <= reach.limit) | (upper <= reach.limit)));
}
