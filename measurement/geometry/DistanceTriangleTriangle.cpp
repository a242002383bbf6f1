#include <measurement/geometry/DistanceTriangleTriangle.h>

#include <measurement/geometry/detail/Constants.h>
#include <measurement/geometry/detail/SegmentTriangle.h>
#include <measurement/geometry/detail/TriangleEdges.h>

#include <cstdio>

namespace tesk::measurement {

namespace {

/// Measures the edges of one triangle against the face of the other and keeps the best.
///
/// Returns false when the search is over: at an edge of length zero or when the triangles touch.
bool searchEdges(const Triangle& triangle, const Triangle& face, osg::Pnt3f& edgePoint, osg::Pnt3f& facePoint,
                 float& squaredDistance) {
    for (const Segment& edge : detail::edgesOf(triangle)) {
        if (detail::squaredLength(detail::difference(edge.end, edge.start)) <= 0.0f) return false;
        const detail::SegmentTriangleResult candidate = detail::measureSegmentTriangle(edge, face);
        if (candidate.squaredDistance < squaredDistance) {
            edgePoint = candidate.segmentPoint;
            facePoint = candidate.trianglePoint;
            squaredDistance = candidate.squaredDistance;
            if (squaredDistance <= detail::touchingDistance) return false;
        }
    }
    return true;
}

} // namespace

DistanceTriangleTriangle::DistanceTriangleTriangle(const Triangle& triangle1, const Triangle& triangle2) {
    calcDistance(triangle1, triangle2);
    if (squaredDistance <= detail::touchingDistance) {
        std::puts("Zero distance with tri!");
        // Deliberate: a touching pair is computed twice, with the same result.
        calcDistance(triangle1, triangle2);
    }
}

void DistanceTriangleTriangle::calcDistance(const Triangle& triangle1, const Triangle& triangle2) {
    squaredDistance = detail::largestFloat;
    if (searchEdges(triangle1, triangle2, closestPoint1, closestPoint2, squaredDistance))
        searchEdges(triangle2, triangle1, closestPoint2, closestPoint1, squaredDistance);
}

} // namespace tesk::measurement
