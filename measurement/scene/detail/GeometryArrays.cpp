#include <measurement/scene/detail/GeometryArrays.h>

#include <measurement/scene/detail/GeometryPrimitives.h>

#include <cstring>

namespace tesk::measurement::detail {

namespace {

/// Sixteen bytes of indices.
typedef std::int32_t Indices __attribute__((vector_size(16)));

/// Whether all indices are less than the count, which is less than 2 to the power 31.
bool areBelow(const std::uint32_t* indices, std::size_t indexCount, std::size_t count) {
    const auto last = static_cast<std::int32_t>(count) - 1;
    constexpr std::size_t step = sizeof(Indices) / sizeof *indices;
    // A sign bit shows an index that is negative as a signed number, or above the last.
    Indices signs{};
    std::size_t i = 0;
    for (; i + step <= indexCount; i += step) {
        Indices some;
        std::memcpy(&some, indices + i, sizeof some);
        signs |= some | (last - some);
    }
    for (; i < indexCount; ++i)
        if (indices[i] >= count) return false;
    for (std::size_t lane = 0; lane < step; ++lane)
        if (signs[lane] < 0) return false;
    return true;
}

/// Whether vertices are indexed by a single index, the first one of each.
bool hasSingleIndex(const osg::GeometryPtr& geometry) {
    const auto& mapping = geometry->getIndexMapping();
    return mapping.size() == 0 || (mapping.size() == 1 && (mapping[0] & osg::Geometry::MapPosition) != 0);
}

/// The length of the geometry's only primitive if that is one of whole triangles; 0 otherwise.
osg::UInt32 getTriangleCorners(const osg::GeometryPtr& geometry) {
    const osg::GeoPTypesPtr types = geometry->getTypes();
    const osg::GeoPLengthsPtr lengths = geometry->getLengths();
    if (types == osg::NullFC || lengths == osg::NullFC || types->getSize() != 1 || lengths->getSize() != 1) return 0;
    const osg::UInt32 length = lengths->getValue(0);
    return types->getValue(0) == GL_TRIANGLES && length % 3 == 0 ? length : 0;
}

/// The corners of all triangles as they lie in memory; an empty array where they do not.
acceleration::PrimitiveArray<Triangle> findTriangles(const osg::GeometryPtr& geometry, const osg::Pnt3f* positions,
                                                     std::size_t positionCount) {
    const std::size_t cornerCount = getTriangleCorners(geometry);
    const osg::GeoIndicesUI32Ptr indices = osg::GeoIndicesUI32Ptr::dcast(geometry->getIndices());
    if (cornerCount == 0 || indices == osg::NullFC || indices->getSize() < cornerCount || !hasSingleIndex(geometry))
        return {};
    const std::uint32_t* const corners = &indices->getField()[0];
    if (!areBelow(corners, cornerCount, positionCount)) return {};
    return {positions, positionCount, corners, cornerCount / 3};
}

} // namespace

GeometryArrays::GeometryArrays(const osg::GeometryPtr& geometry) {
    const GeometryPositions positions(geometry);
    if (positions.isEmpty()) return;
    if (positions.getArray() != nullptr) triangles = findTriangles(geometry, positions.getArray(), positions.size());
    // What has one primitive of triangles has no lines.
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
