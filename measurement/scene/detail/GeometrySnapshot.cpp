#include <measurement/scene/detail/GeometrySnapshot.h>

#include <measurement/scene/detail/GeometryPrimitives.h>
#include <measurement/scene/detail/TriangleList.h>

#include <numeric>

namespace tesk::measurement::detail {

GeometrySnapshot::GeometrySnapshot(const osg::GeometryPtr& geometry, const osg::Matrix& toFrame) {
    if (geometry == osg::NullFC) return;
    const GeometryPositions local(geometry);
    const auto toWorld = [&](std::uint32_t index) {
        osg::Pnt3f world;
        toFrame.multMatrixPnt(local[static_cast<osg::Int32>(index)], world);
        return world;
    };
    const TriangleList list(geometry, local.size());
    mesh.corners = list.corners;
    mesh.triangleCount = static_cast<std::uint32_t>(list.count);
    if (list.count == 0) collectCorners(geometry, local);
    const std::size_t cornerCount = std::size_t(3) * mesh.triangleCount;
    if (local.size() <= cornerCount) {
        positions.reserve(std::size_t(local.size()) + 1);
        for (std::uint32_t i = 0; i < local.size(); ++i) positions.push_back(toWorld(i));
    } else {
        // Many geometries may share positions of which each uses a few.
        positions.reserve(cornerCount + 1);
        for (std::size_t i = 0; i < cornerCount; ++i) positions.push_back(toWorld(mesh.corners[i]));
        corners.resize(cornerCount);
        std::iota(corners.begin(), corners.end(), 0u);
        mesh.corners = corners.data();
    }
    // One more, as the mesh wants it.
    positions.emplace_back(0.0f, 0.0f, 0.0f);
    mesh.positions = positions.data();
}

void GeometrySnapshot::collectCorners(const osg::GeometryPtr& geometry, const GeometryPositions& local) {
    forEachTriangleByIndex(geometry, local, [&](osg::Int32 i0, osg::Int32 i1, osg::Int32 i2) {
        corners.insert(corners.end(), {static_cast<std::uint32_t>(i0), static_cast<std::uint32_t>(i1),
                                       static_cast<std::uint32_t>(i2)});
    });
    mesh.corners = corners.data();
    mesh.triangleCount = static_cast<std::uint32_t>(corners.size() / 3);
}

} // namespace tesk::measurement::detail
