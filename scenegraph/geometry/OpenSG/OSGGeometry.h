#pragma once

#include <OpenSG/OSGGeoProperty.h>
#include <OpenSG/OSGMaterialDrawable.h>

namespace osg {

class Geometry;
class LineIterator;
class PrimitiveIterator;
class TriangleIterator;
typedef FCPtr<MaterialDrawablePtr, Geometry> GeometryPtr;
typedef RefPtr<GeometryPtr> GeometryRefPtr;

/// Points, lines and surfaces: primitives over vertices whose data lie in properties.
///
/// Vertices are numbered through all primitives, each taking as many as its length. Without indices, vertex v has
/// element v of every property. With indices and k mapping entries, vertex v has the k indices from v*k on, and the
/// one in slot j serves the properties in mapping entry j; no mapping means one index for all. Without lengths every
/// primitive is as long as all vertices.
///
/// A property may serve many geometries; each holds a reference to it and is one of its parents. Setting a property
/// has the effect of an edit of it on the geometry, and null has none.
class OSG_SYSTEMLIB_DLLMAPPING Geometry : public MaterialDrawable {
    OSG_CONTAINER(Geometry, MaterialDrawable)

public:
    enum : UInt32 {
        TypesFieldId = Inherited::NextFieldId,
        LengthsFieldId,
        PositionsFieldId,
        NormalsFieldId,
        ColorsFieldId,
        SecondaryColorsFieldId,
        TexCoordsFieldId,
        /// After the numbers of seven further sets of texture coordinates.
        IndicesFieldId = TexCoordsFieldId + 8,
        IndexMappingFieldId,
        DlistCacheFieldId,
        /// After the numbers of what drawing keeps and of still further sets.
        VboFieldId = DlistCacheFieldId + 7,
        NextFieldId
    };
    static constexpr BitVector TypesFieldMask = fieldMask(TypesFieldId);
    static constexpr BitVector LengthsFieldMask = fieldMask(LengthsFieldId);
    static constexpr BitVector PositionsFieldMask = fieldMask(PositionsFieldId);
    static constexpr BitVector NormalsFieldMask = fieldMask(NormalsFieldId);
    static constexpr BitVector ColorsFieldMask = fieldMask(ColorsFieldId);
    static constexpr BitVector SecondaryColorsFieldMask = fieldMask(SecondaryColorsFieldId);
    static constexpr BitVector TexCoordsFieldMask = fieldMask(TexCoordsFieldId);
    static constexpr BitVector IndicesFieldMask = fieldMask(IndicesFieldId);
    static constexpr BitVector IndexMappingFieldMask = fieldMask(IndexMappingFieldId);
    static constexpr BitVector DlistCacheFieldMask = fieldMask(DlistCacheFieldId);
    static constexpr BitVector VboFieldMask = fieldMask(VboFieldId);

    /// Which properties an index serves.
    static constexpr UInt16 MapPosition = 0x1;
    static constexpr UInt16 MapNormal = 0x2;
    static constexpr UInt16 MapColor = 0x4;
    static constexpr UInt16 MapSecondaryColor = 0x8;
    static constexpr UInt16 MapTexCoords = 0x10;

    GeoPTypesPtr& getTypes() { return types; }
    const GeoPTypesPtr& getTypes() const { return types; }
    void setTypes(const GeoPTypesPtr& property) { setProperty(types, property); }
    GeoPLengthsPtr& getLengths() { return lengths; }
    const GeoPLengthsPtr& getLengths() const { return lengths; }
    void setLengths(const GeoPLengthsPtr& property) { setProperty(lengths, property); }
    GeoPositionsPtr& getPositions() { return positions; }
    const GeoPositionsPtr& getPositions() const { return positions; }
    void setPositions(const GeoPositionsPtr& property) { setProperty(positions, property); }
    GeoNormalsPtr& getNormals() { return normals; }
    const GeoNormalsPtr& getNormals() const { return normals; }
    void setNormals(const GeoNormalsPtr& property) { setProperty(normals, property); }
    GeoColorsPtr& getColors() { return colors; }
    const GeoColorsPtr& getColors() const { return colors; }
    void setColors(const GeoColorsPtr& property) { setProperty(colors, property); }
    GeoColorsPtr& getSecondaryColors() { return secondaryColors; }
    const GeoColorsPtr& getSecondaryColors() const { return secondaryColors; }
    void setSecondaryColors(const GeoColorsPtr& property) { setProperty(secondaryColors, property); }
    GeoTexCoordsPtr& getTexCoords() { return texCoords; }
    const GeoTexCoordsPtr& getTexCoords() const { return texCoords; }
    void setTexCoords(const GeoTexCoordsPtr& property) { setProperty(texCoords, property); }
    GeoIndicesPtr& getIndices() { return indices; }
    const GeoIndicesPtr& getIndices() const { return indices; }
    void setIndices(const GeoIndicesPtr& property) { setProperty(indices, property); }

    MFUInt16& getIndexMapping() { return indexMapping; }
    const MFUInt16& getIndexMapping() const { return indexMapping; }
    UInt16& getIndexMapping(UInt32 slot) { return indexMapping[slot]; }
    MFUInt16* getMFIndexMapping() { return &indexMapping; }
    /// The last slot that serves one of the properties, or -1.
    Int16 calcMappingIndex(UInt16 attributes) const;

    /// Whether drawing goes through a display list.
    bool getDlistCache() const { return dlistCache; }
    void setDlistCache(bool use) { dlistCache = use; }
    bool getVbo() const { return vbo; }
    void setVbo(bool use) { vbo = use; }

    PrimitiveIterator beginPrimitives() const;
    PrimitiveIterator endPrimitives() const;
    /// The ends of triangles and of lines are the same for all geometries, and cheap.
    TriangleIterator beginTriangles() const;
    TriangleIterator endTriangles() const;
    LineIterator beginLines() const;
    LineIterator endLines() const;

    /// A geometry with copies of the properties and the same material.
    GeometryPtr clone() const;

    /// The fields in which this geometry uses the property.
    BitVector getFieldsUsing(const AttachmentPtr& property) const;

    /// Counts the changes of what is drawn, so that drawing can tell an outdated copy.
    UInt32 getRevision() const { return revision; }

    /// Positions: makes the volumes of its nodes invalid.
    void changed(BitVector whichField, UInt32 origin) override;

protected:
    Geometry() = default;
    ~Geometry() override;

    /// Replaces the volume by the box of the positions that primitives use, however short these are. Vertices, indices
    /// and positions that do not exist count for nothing.
    void adjustVolume(Volume& volume) override;

private:
    template <class PropertyPtr> void setProperty(PropertyPtr& field, const PropertyPtr& property);
    void acquire(const AttachmentPtr& property);
    void release(const AttachmentPtr& property);

    GeoPTypesPtr types;
    GeoPLengthsPtr lengths;
    GeoPositionsPtr positions;
    GeoNormalsPtr normals;
    GeoColorsPtr colors;
    GeoColorsPtr secondaryColors;
    GeoTexCoordsPtr texCoords;
    GeoIndicesPtr indices;
    MFUInt16 indexMapping;
    bool dlistCache = true;
    bool vbo = false;
    UInt32 revision = 0;
};

template <class PropertyPtr> void Geometry::setProperty(PropertyPtr& field, const PropertyPtr& property) {
    const PropertyPtr old = field;
    field = property;
    acquire(field);
    release(old);
    if (field != NullFC) changed(getFieldsUsing(field), ChangedOrigin::Child);
}

} // namespace osg
