#include <measurement/scene/detail/TriangleList.h>

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
    return mapping.empty() || (mapping.size() == 1 && (mapping[0] & osg::Geometry::MapPosition) != 0);
}

/// The length of the geometry's only primitive if that is one of whole triangles; 0 otherwise.
osg::UInt32 getCornerCount(const osg::GeometryPtr& geometry) {
    const osg::GeoPTypesPtr types = geometry->getTypes();
    const osg::GeoPLengthsPtr lengths = geometry->getLengths();
    if (types == osg::NullFC || lengths == osg::NullFC || types->getSize() != 1 || lengths->getSize() != 1) return 0;
    const osg::UInt32 length = lengths->getValue(0);
    return types->getValue(0) == GL_TRIANGLES && length % 3 == 0 ? length : 0;
}

} // namespace

TriangleList::TriangleList(const osg::GeometryPtr& geometry, std::size_t positionCount) {
    const std::size_t cornerCount = getCornerCount(geometry);
    const osg::GeoIndicesUI32Ptr indices = osg::GeoIndicesUI32Ptr::dcast(geometry->getIndices());
    if (cornerCount == 0 || indices == osg::NullFC || indices->getSize() < cornerCount || !hasSingleIndex(geometry))
        return;
    const std::uint32_t* const first = &indices->getField()[0];
    if (!areBelow(first, cornerCount, positionCount)) return;
    corners = first;
    count = cornerCount / 3;
}

} // namespace tesk::measurement::detail
