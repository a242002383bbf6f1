// Squared distances from one point to eight primitives, and bounds for what is in eight boxes. A kernel for
// CompileKernel.h.

#include <measurement/acceleration/vector/SegmentTriangleLanes.h>

/// The operations of lowerBound() in PointDistanceFilter.h. NaN where a box or the point is NaN.
TESK_ALWAYS_INLINE Lanes lowerBounds(const LaneVectors& low, const LaneVectors& high, const LaneVectors& point) {
    const LaneVectors below = low - point, above = point - high;
    const LaneVectors gap{max(max(below.x, above.x), 0.0f), max(max(below.y, above.y), 0.0f),
                          max(max(below.z, above.z), 0.0f)};
    const LaneVectors reach = lowest(below, above);
    return dot(gap, gap) - (16.0f * dot(reach, reach) * boundMargin + smallestMargin);
}

inline unsigned findNearTriangles(const PrimitiveLanes<Triangle>& lanes, float x, float y, float z, float best) {
    const LaneTriangles triangles{loadVectors(lanes.corners[0]), loadVectors(lanes.corners[1]),
                                  loadVectors(lanes.corners[2])};
    const LaneVectors point{x, y, z};
    const LaneVectors low = lowest(lowest(triangles.p0, triangles.p1), triangles.p2);
    const LaneVectors high = highest(highest(triangles.p0, triangles.p1), triangles.p2);
    const unsigned inReach = toBits(!(lowerBounds(low, high, point) > best));
    return inReach == 0 ? 0 : inReach & toBits(measureTrianglePoint(triangles, point) <= best);
}

/// As DistanceSegmentPoint measures.
inline unsigned findNearSegments(const PrimitiveLanes<Segment>& lanes, float x, float y, float z, float best) {
    const LaneVectors start = loadVectors(lanes.corners[0]), end = loadVectors(lanes.corners[1]);
    const LaneVectors direction = end - start, offset = LaneVectors{x, y, z} - start;
    const Lanes squaredLength = dot(direction, direction);
    const Lanes projection = dot(offset, direction);
    const Lanes unclamped = projection / squaredLength;
    const Lanes t = select(unclamped > 1.0f, 1.0f, select(unclamped < 0.0f, 0.0f, unclamped));
    return toBits(t * t * squaredLength + (-2.0f * t * projection + dot(offset, offset)) <= best);
}

inline unsigned findNearBoxes(const BoxLanes& boxes, float x, float y, float z, float best, float* bounds) {
    const Lanes all = lowerBounds(loadVectors(boxes.low), loadVectors(boxes.high), {x, y, z});
    store(all, bounds);
    return toBits(!(all > best));
}
