#pragma once

#include <OpenSG/OSGGeometry.h>

namespace osg {

/// Which element of each property the vertices of a geometry have.
///
/// A view: it ends with the geometry and with every change of its indices, index mapping or number of positions.
class OSG_SYSTEMLIB_DLLMAPPING GeometryVertices {
public:
    /// No vertices.
    GeometryVertices() = default;
    explicit GeometryVertices(const GeometryPtr& owner);

    const GeometryPtr& getGeometry() const { return geometry; }
    /// How many vertices there are: indices, or positions when nothing is indexed. With neither property only the
    /// lengths tell, up to a limit that no real geometry of that sort meets.
    UInt32 size() const { return vertexCount; }

    /// Number of a vertex's position. The vertex must exist.
    UInt32 getPositionIndex(UInt32 vertex) const {
        return isIndexed() ? getIndex(size_t(vertex) * positionStride + positionSlot) : vertex;
    }
    /// Whether there is a position of this number; any will do for a geometry without the property.
    bool isPosition(UInt32 index) const { return index < positionCount; }

    /// The vertex's first entry among the indices, or -1 without indices.
    Int32 getIndexIndex(UInt32 vertex) const { return isIndexed() ? static_cast<Int32>(vertex * slotCount) : -1; }
    /// Number of the vertex's element in the property that the mapping bit names; -1 when there is no such vertex or
    /// no index serves the property.
    Int32 getElementIndex(UInt32 vertex, UInt16 mapping) const;

private:
    bool isIndexed() const { return wideIndices || narrowIndices; }
    UInt32 getIndex(size_t entry) const { return wideIndices ? wideIndices[entry] : narrowIndices[entry]; }

    GeometryPtr geometry;
    const UInt32* wideIndices = nullptr;
    const UInt16* narrowIndices = nullptr;
    UInt32 slotCount = 1;
    UInt32 positionStride = 1;
    UInt32 positionSlot = 0;
    UInt32 vertexCount = 0;
    UInt32 positionCount = 0;
};

/// What an iterator tells about the corners of its element, beside their positions' numbers.
///
/// Indices are -1 and values 0 where the property or its element is missing. Iterator has getVertices(),
/// getVertex(which) for the number of a corner's vertex, and getPositionIndex(which).
template <class Iterator> class GeometryCorners {
public:
    const GeometryPtr& getGeometry() const { return self().getVertices().getGeometry(); }

    /// The corner's first entry among the indices.
    Int32 getIndexIndex(UInt32 which) const { return self().getVertices().getIndexIndex(self().getVertex(which)); }
    Int32 getNormalIndex(UInt32 which) const { return find(which, Geometry::MapNormal, getGeometry()->getNormals()); }
    Int32 getColorIndex(UInt32 which) const { return find(which, Geometry::MapColor, getGeometry()->getColors()); }
    Int32 getTexCoordsIndex(UInt32 which) const {
        return find(which, Geometry::MapTexCoords, getGeometry()->getTexCoords());
    }

    Pnt3f getPosition(UInt32 which) const {
        return read(getGeometry()->getPositions(), self().getPositionIndex(which));
    }
    Vec3f getNormal(UInt32 which) const { return read(getGeometry()->getNormals(), getNormalIndex(which)); }
    Color3f getColor(UInt32 which) const { return read(getGeometry()->getColors(), getColorIndex(which)); }
    Vec2f getTexCoords(UInt32 which) const { return read(getGeometry()->getTexCoords(), getTexCoordsIndex(which)); }

protected:
    GeometryCorners() = default;

private:
    const Iterator& self() const { return static_cast<const Iterator&>(*this); }

    Int32 find(UInt32 which, UInt16 mapping, const AttachmentPtr& property) const {
        return property == NullFC ? -1 : self().getVertices().getElementIndex(self().getVertex(which), mapping);
    }

    template <class PropertyPtr>
    static auto read(const PropertyPtr& property, Int32 index) -> decltype(property->getValue(0)) {
        if (property == NullFC || index < 0 || static_cast<UInt32>(index) >= property->getSize()) return {};
        return property->getValue(static_cast<UInt32>(index));
    }
};

} // namespace osg
