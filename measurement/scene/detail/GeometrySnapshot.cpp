#include <measurement/scene/detail/GeometrySnapshot.h>

#include <measurement/scene/detail/GeometryPrimitives.h>

#include <algorithm>
#include <numeric>

namespace tesk::measurement::detail {

namespace {

/// The indices if each three of them are a triangle, whatever the positions; else null.
const osg::GeoIndicesUI32* getTriangleIndices(const osg::GeometryPtr& geometry) {
    const osg::GeoIndicesUI32Ptr indices = osg::GeoIndicesUI32Ptr::dcast(geometry->getIndices());
    const osg::GeoPTypesPtr types = geometry->getTypes();
    const osg::GeoPLengthsPtr lengths = geometry->getLengths();
    if (indices == osg::NullFC || types == osg::NullFC || lengths == osg::NullFC) return nullptr;
    const bool isOneList = types->getSize() == 1 && types->getValue(0) == GL_TRIANGLES && lengths->getSize() == 1 &&
                           geometry->getMFIndexMapping()->empty();
    if (!isOneList) return nullptr;
    const osg::UInt32 length = lengths->getValue(0);
    const bool isWhole = length > 0 && length % 3 == 0 && length == indices->getSize();
    return isWhole ? &*indices : nullptr;
}

} // namespace

GeometrySnapshot::GeometrySnapshot(const osg::GeometryPtr& geometry, const osg::Matrix& toFrame) {
    if (geometry == osg::NullFC) return;
    const GeometryPositions local(geometry);
    const auto toWorld = [&](std::uint32_t index) {
        osg::Pnt3f world;
        toFrame.multMatrixPnt(local[static_cast<osg::Int32>(index)], world);
        return world;
    };
    if (!useIndices(geometry, local.size())) collectCorners(geometry, local);
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

bool GeometrySnapshot::useIndices(const osg::GeometryPtr& geometry, std::size_t positionCount) {
    const osg::GeoIndicesUI32* const indices = getTriangleIndices(geometry);
    if (indices == nullptr) return false;
    const osg::UInt32* const first = &indices->getField()[0];
    const std::size_t count = indices->getField().size();
    osg::UInt32 largest = 0;
    for (std::size_t i = 0; i < count; ++i) largest = std::max(largest, first[i]);
    if (largest >= positionCount) return false;
    mesh.corners = first;
    mesh.triangleCount = static_cast<std::uint32_t>(count / 3);
    return true;
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
