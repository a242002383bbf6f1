#include <OpenSG/OSGGeometry.h>

#include <OpenSG/OSGBoxVolume.h>
#include <OpenSG/OSGLineIterator.h>
#include <OpenSG/OSGPrimitiveIterator.h>
#include <OpenSG/OSGTriangleIterator.h>

namespace osg {

namespace {

template <class PropertyPtr> PropertyPtr cloneOf(const PropertyPtr& property) {
    return property == NullFC ? PropertyPtr() : property->clone();
}

} // namespace

OSG_CONTAINER_DEF(Geometry)

Geometry::~Geometry() {
    for (const AttachmentPtr& property :
         {AttachmentPtr(types), AttachmentPtr(lengths), AttachmentPtr(positions), AttachmentPtr(normals),
          AttachmentPtr(colors), AttachmentPtr(secondaryColors), AttachmentPtr(texCoords), AttachmentPtr(indices)})
        release(property);
}

void Geometry::acquire(const AttachmentPtr& property) {
    if (property == NullFC) return;
    addRefCP(property);
    property->addParent(FieldContainerPtr(*this));
}

void Geometry::release(const AttachmentPtr& property) {
    if (property == NullFC) return;
    property->subParent(FieldContainerPtr(*this));
    subRefCP(property);
}

Int16 Geometry::calcMappingIndex(UInt16 attributes) const {
    for (size_t slot = indexMapping.size(); slot-- > 0;)
        if (indexMapping[slot] & attributes) return static_cast<Int16>(slot);
    return -1;
}

PrimitiveIterator Geometry::beginPrimitives() const { return PrimitiveIterator(GeometryPtr(*this)); }

PrimitiveIterator Geometry::endPrimitives() const {
    PrimitiveIterator end = beginPrimitives();
    end.setToEnd();
    return end;
}

TriangleIterator Geometry::beginTriangles() const {
    TriangleIterator begin{GeometryPtr(*this)};
    begin.setToBegin();
    return begin;
}

TriangleIterator Geometry::endTriangles() const { return TriangleIterator(); }

LineIterator Geometry::beginLines() const {
    LineIterator begin{GeometryPtr(*this)};
    begin.setToBegin();
    return begin;
}

LineIterator Geometry::endLines() const { return LineIterator(); }

GeometryPtr Geometry::clone() const {
    const GeometryPtr copy = create();
    if (copy == NullFC) return copy;
    copy->setTypes(cloneOf(types));
    copy->setLengths(cloneOf(lengths));
    copy->setPositions(cloneOf(positions));
    copy->setNormals(cloneOf(normals));
    copy->setColors(cloneOf(colors));
    copy->setSecondaryColors(cloneOf(secondaryColors));
    copy->setTexCoords(cloneOf(texCoords));
    copy->setIndices(cloneOf(indices));
    copy->indexMapping = indexMapping;
    copy->dlistCache = dlistCache;
    copy->vbo = vbo;
    copy->setMaterial(getMaterial());
    return copy;
}

BitVector Geometry::getFieldsUsing(const AttachmentPtr& property) const {
    const auto field = [&](const FieldContainerPtrBase& used, BitVector mask) {
        return used == property ? mask : FieldBits::NoField;
    };
    return field(types, TypesFieldMask) | field(lengths, LengthsFieldMask) | field(positions, PositionsFieldMask) |
           field(normals, NormalsFieldMask) | field(colors, ColorsFieldMask) |
           field(secondaryColors, SecondaryColorsFieldMask) | field(texCoords, TexCoordsFieldMask) |
           field(indices, IndicesFieldMask);
}

void Geometry::changed(BitVector whichField, UInt32 origin) {
    if (whichField & PositionsFieldMask) invalidateVolume();
    if (whichField & ~(MaterialFieldMask | ParentsFieldMask)) ++revision;
    Inherited::changed(whichField, origin);
}

void Geometry::adjustVolume(Volume& volume) {
    volume.setValid();
    volume.setEmpty();
    if (positions == NullFC) return;
    // Primitives lie end to end, so that what they use are the first vertices.
    UInt32 usedVertices = 0;
    for (PrimitiveIterator primitive = beginPrimitives(); !primitive.isAtEnd(); ++primitive)
        usedVertices += primitive.getLength();
    const GeometryVertices vertices(GeometryPtr(*this));
    BoxVolume box;
    for (UInt32 vertex = 0; vertex < usedVertices; ++vertex) {
        const UInt32 position = vertices.getPositionIndex(vertex);
        if (vertices.isPosition(position)) box.extendBy(positions->getValue(position));
    }
    volume.extendBy(box);
}

} // namespace osg
