#pragma once

#include <measurement/geometry/Primitives.h>
#include <measurement/geometry/detail/Constants.h>
#include <measurement/geometry/detail/LineSegment.h>
#include <measurement/geometry/detail/TriangleEdges.h>
#include <measurement/geometry/detail/VectorMath.h>

#include <cmath>
#include <limits>

namespace tesk::measurement::detail {

struct LineTriangleResult {
    osg::Pnt3f linePoint;
    osg::Pnt3f trianglePoint;
    float squaredDistance;
    float lineParameter;
};

/// Weights of two edges: the vector u * edge0 + w * edge1.
struct EdgeWeights {
    float u;
    float w;
};

/// Solves offset = u * edge0 + w * edge1 in the coordinate plane that the triangle faces most.
inline EdgeWeights solveInFacingPlane(const osg::Vec3f& offset, const osg::Vec3f& edge0, const osg::Vec3f& edge1,
                                      const osg::Vec3f& normal) {
    const float x = std::fabs(normal[0]);
    const float y = std::fabs(normal[1]);
    const float z = std::fabs(normal[2]);
    // Of equal components x comes before y and y before z, hence <=.
    const bool isYAtLeastZ = z <= y;
    if (isYAtLeastZ ? y <= x : z <= x)
        return {(offset[1] * edge1[2] - offset[2] * edge1[1]) / normal[0],
                (offset[2] * edge0[1] - offset[1] * edge0[2]) / normal[0]};
    if (isYAtLeastZ) {
        const float negatedY = edge0[0] * edge1[2] - edge0[2] * edge1[0];
        return {(offset[0] * edge1[2] - offset[2] * edge1[0]) / negatedY,
                (offset[2] * edge0[0] - offset[0] * edge0[2]) / negatedY};
    }
    return {(edge1[1] * offset[0] - offset[1] * edge1[0]) / normal[2],
            (edge0[0] * offset[1] - offset[0] * edge0[1]) / normal[2]};
}

/// The edge nearest a line that misses the triangle or runs in its plane. When no edge is nearer than the largest
/// number, the points are the origin and the line parameter is NaN.
inline LineTriangleResult measureLineEdges(const Line& line, const Triangle& triangle) {
    LineTriangleResult best{
        {0.0f, 0.0f, 0.0f}, {0.0f, 0.0f, 0.0f}, largestFloat, std::numeric_limits<float>::quiet_NaN()};
    for (const Segment& edge : edgesOf(triangle)) {
        const LineSegmentResult candidate = measureLineSegment(line, edge);
        if (candidate.squaredDistance < best.squaredDistance)
            best = {pointAt(line.origin, candidate.lineParameter, line.direction),
                    pointOf(edge, candidate.segmentParameter), candidate.squaredDistance, candidate.lineParameter};
    }
    return best;
}

inline LineTriangleResult measureLineTriangle(const Line& line, const Triangle& triangle) {
    const osg::Vec3f edge0 = difference(triangle.p1, triangle.p0);
    const osg::Vec3f edge1 = difference(triangle.p2, triangle.p0);
    const osg::Vec3f normal = cross(edge0, edge1);
    const float denominator = dot(normal, line.direction);
    // Both are false for NaN, so such a triangle is measured by its edges like one that the line runs along.
    if (denominator < 0.0f || denominator > 0.0f) {
        const float s = dot(difference(triangle.p0, line.origin), normal) / denominator;
        const osg::Pnt3f crossing = pointAt(line.origin, s, line.direction);
        const EdgeWeights weights = solveInFacingPlane(difference(crossing, triangle.p0), edge0, edge1, normal);
        if (weights.u >= 0.0f && weights.w >= 0.0f && weights.u + weights.w <= 1.0f)
            return {crossing, pointAt(triangle.p0, weights.u, edge0, weights.w, edge1), 0.0f, s};
    }
    return measureLineEdges(line, triangle);
}

} // namespace tesk::measurement::detail
