#pragma once

#include <OpenSG/OSGGeometry.h>

#include <measurement/acceleration/points/PointSearch.h>

#include <vector>

namespace tesk::measurement::detail {

class GeometryPositions;

/// The triangles and lines of a geometry as plain arrays, in local coordinates: those that forEachTriangle() and
/// forEachLine() visit, in their order.
///
/// Arrays of the geometry itself are used where they can be, so it must not change nor end meanwhile. Otherwise there
/// are copies: 4 bytes for each corner unless all come from one primitive of triangles with 32-bit indices, 12 more
/// unless positions are an array of osg::Pnt3f.
class GeometryArrays {
public:
    explicit GeometryArrays(const osg::GeometryPtr& geometry);
    GeometryArrays(GeometryArrays&&) = default;
    GeometryArrays& operator=(GeometryArrays&&) = default;

    const acceleration::PrimitiveArray<Triangle>& getTriangles() const { return triangles; }
    const acceleration::PrimitiveArray<Segment>& getSegments() const { return segments; }

private:
    void copy(const osg::GeometryPtr& geometry, const GeometryPositions& positions);

    acceleration::PrimitiveArray<Triangle> triangles;
    acceleration::PrimitiveArray<Segment> segments;
    std::vector<osg::Pnt3f> ownPositions;
    std::vector<std::uint32_t> ownTriangles, ownSegments;
};

} // namespace tesk::measurement::detail
