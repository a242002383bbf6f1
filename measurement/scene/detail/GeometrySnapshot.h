#pragma once

#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGMatrix.h>

#include <measurement/acceleration/TriangleMesh.h>

#include <vector>

namespace tesk::measurement::detail {

class GeometryPositions;

/// The triangles of a geometry as arrays, in another frame: those that forEachTriangle() visits, in its order.
///
/// Every position is transformed once, with the same result as for each of its triangles. Ends with any change of the
/// geometry, whose own indices are used where they are what is needed.
class GeometrySnapshot {
public:
    /// Empty for a null geometry.
    GeometrySnapshot(const osg::GeometryPtr& geometry, const osg::Matrix& toFrame);
    GeometrySnapshot(const GeometrySnapshot&) = delete;
    GeometrySnapshot& operator=(const GeometrySnapshot&) = delete;

    const acceleration::TriangleMesh& getMesh() const { return mesh; }

private:
    void collectCorners(const osg::GeometryPtr& geometry, const GeometryPositions& local);

    acceleration::TriangleMesh mesh;
    std::vector<osg::Pnt3f> positions;
    std::vector<std::uint32_t> corners;
};

} // namespace tesk::measurement::detail
