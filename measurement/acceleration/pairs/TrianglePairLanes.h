// One pair of triangles in eight lanes: the first three are the edges of the first triangle against the second, in the
// order of detail::edgesOf(), lanes 4 to 6 those of the second against the first. Kernel for CompileKernel.h.

#include <measurement/acceleration/vector/SegmentTriangleLanes.h>

/// One coordinate of the corners.
TESK_ALWAYS_INLINE void spread(const float (&first)[3], const float (&second)[3], Lanes& start, Lanes& end, Lanes& p0,
                               Lanes& p1, Lanes& p2) {
    start = lanes(first[2], first[0], first[1], first[1], second[2], second[0], second[1], second[1]);
    end = lanes(first[0], first[1], first[2], first[2], second[0], second[1], second[2], second[2]);
    p0 = halves(second[0], first[0]);
    p1 = halves(second[1], first[1]);
    p2 = halves(second[2], first[2]);
}

struct EdgeDistances {
    Lanes distances;
    /// The lanes of edges that the query measures: those before the first edge of length zero.
    unsigned lanes;
};

TESK_ALWAYS_INLINE EdgeDistances measureEdges(const PackedTriangle& first, const PackedTriangle& second) {
    LaneSegments edges;
    LaneTriangles faces;
    spread(first.x, second.x, edges.start.x, edges.end.x, faces.p0.x, faces.p1.x, faces.p2.x);
    spread(first.y, second.y, edges.start.y, edges.end.y, faces.p0.y, faces.p1.y, faces.p2.y);
    spread(first.z, second.z, edges.start.z, edges.end.z, faces.p0.z, faces.p1.z, faces.p2.z);
    constexpr unsigned edgeLanes = 0x77;
    const LaneVectors direction = edges.end - edges.start;
    const unsigned pointlike = toBits(dot(direction, direction) <= 0.0f) & edgeLanes;
    const unsigned firstPointlike = pointlike & (0u - pointlike);
    return {measureSegmentTriangle(edges, faces), edgeLanes & (firstPointlike - 1)};
}

/// Whether one of the distances that count is below `best` or at most `touching`.
bool hasEdgeNearer(const PackedTriangle& first, const PackedTriangle& second, float best, float touching) {
    const EdgeDistances edges = measureEdges(first, second);
    return (toBits((edges.distances < best) | (edges.distances <= touching)) & edges.lanes) != 0;
}

/// The smallest of the distances that count, or `none`.
float nearestEdge(const PackedTriangle& first, const PackedTriangle& second, float none) {
    const EdgeDistances edges = measureEdges(first, second);
    float distances[laneCount];
    store(edges.distances, distances);
    float nearest = none;
    for (int i = 0; i < laneCount; ++i)
        if ((edges.lanes >> i & 1) != 0 && distances[i] < nearest) nearest = distances[i];
    return nearest;
}
