#include <OpenSG/OSGGeometryVertices.h>

#include <limits>

namespace osg {

namespace {

/// Enough for vertices that no property backs, and soon walked over.
constexpr UInt32 largestUnbackedVertexCount = 1u << 24;
constexpr UInt32 largestVertexCount = std::numeric_limits<Int32>::max();

} // namespace

GeometryVertices::GeometryVertices(const GeometryPtr& owner) : geometry(owner) {
    if (geometry == NullFC) return;
    const GeoPositionsPtr positions = geometry->getPositions();
    const GeoIndicesPtr indices = geometry->getIndices();
    positionCount = positions == NullFC ? std::numeric_limits<UInt32>::max() : positions->getSize();
    if (indices == NullFC) {
        vertexCount = osgMin(positionCount, positions == NullFC ? largestUnbackedVertexCount : largestVertexCount);
        return;
    }
    if (indices->getFormat() == GL_UNSIGNED_INT)
        wideIndices = reinterpret_cast<const UInt32*>(indices->getData());
    else
        narrowIndices = reinterpret_cast<const UInt16*>(indices->getData());
    slotCount = osgMax(geometry->getIndexMapping().getSize(), 1u);
    vertexCount = osgMin(indices->getSize() / slotCount, largestVertexCount);
    if (geometry->getIndexMapping().empty()) {
        positionStride = 1;
    } else if (const Int16 slot = geometry->calcMappingIndex(Geometry::MapPosition); slot >= 0) {
        positionStride = slotCount;
        positionSlot = static_cast<UInt32>(slot);
    }
    // Else no index serves the positions: the indices stand for them one after the other.
}

Int32 GeometryVertices::getElementIndex(UInt32 vertex, UInt16 mapping) const {
    if (vertex >= vertexCount) return -1;
    if (!isIndexed()) return static_cast<Int32>(vertex);
    const Int16 slot = geometry->getIndexMapping().empty() ? Int16(0) : geometry->calcMappingIndex(mapping);
    if (slot < 0) return -1;
    return static_cast<Int32>(getIndex(size_t(vertex) * slotCount + static_cast<size_t>(slot)));
}

} // namespace osg
