#include <measurement/scene/detail/GeometryArrays.h>

#include <measurement/scene/detail/GeometryPrimitives.h>
#include <measurement/scene/detail/TriangleList.h>

namespace tesk::measurement::detail {

GeometryArrays::GeometryArrays(const osg::GeometryPtr& geometry) {
    const GeometryPositions positions(geometry);
    if (positions.isEmpty()) return;
    if (positions.getArray() != nullptr) {
        const TriangleList list(geometry, positions.size());
        triangles = {positions.getArray(), positions.size(), list.corners, list.count};
    }
    if (triangles.count == 0) copy(geometry, positions);
}

void GeometryArrays::copy(const osg::GeometryPtr& geometry, const GeometryPositions& positions) {
    const auto add = [&](osg::Int32 index, std::vector<std::uint32_t>& corners) {
        if (positions.getArray() != nullptr) {
            corners.push_back(static_cast<std::uint32_t>(index));
        } else {
            // One for each corner: many geometries may share positions of which each uses a few.
            corners.push_back(static_cast<std::uint32_t>(ownPositions.size()));
            ownPositions.push_back(positions[index]);
        }
    };
    forEachTriangleByIndex(geometry, positions, [&](osg::Int32 i0, osg::Int32 i1, osg::Int32 i2) {
        for (const osg::Int32 index : {i0, i1, i2}) add(index, ownTriangles);
    });
    forEachLineByIndex(geometry, positions, [&](osg::Int32 i0, osg::Int32 i1) {
        for (const osg::Int32 index : {i0, i1}) add(index, ownSegments);
    });
    const osg::Pnt3f* const points = positions.getArray() != nullptr ? positions.getArray() : ownPositions.data();
    const std::size_t count = positions.getArray() != nullptr ? positions.size() : ownPositions.size();
    triangles = {points, count, ownTriangles.data(), ownTriangles.size() / 3};
    segments = {points, count, ownSegments.data(), ownSegments.size() / 2};
}

} // namespace tesk::measurement::detail
