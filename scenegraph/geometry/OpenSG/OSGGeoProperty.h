#pragma once

#include <OpenSG/OSGAttachment.h>
#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGGL.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGVector.h>

namespace osg {

/// One kind of geometry data, such as positions, read and written in the kind's generic value whatever is stored.
///
/// The geometries that use the property are its parents, one entry a use; an edit's end tells them. No range checks.
template <class Kind> class OSG_SYSTEMLIB_DLLMAPPING AbstractGeoProperty : public Attachment {
public:
    typedef Attachment Inherited;
    typedef FCPtr<AttachmentPtr, AbstractGeoProperty> Ptr;
    typedef typename Kind::Value GenericType;

    enum : UInt32 { GeoPropDataFieldId = Inherited::NextFieldId, NextFieldId };
    static constexpr BitVector GeoPropDataFieldMask = fieldMask(GeoPropDataFieldId);

    static FieldContainerType& getClassType();
    static UInt32 getClassTypeId() { return getClassType().getId(); }
    FieldContainerType& getType() override { return getClassType(); }
    const FieldContainerType& getType() const override { return getClassType(); }

    virtual GenericType getValue(UInt32 index) const = 0;
    void getValue(GenericType& result, UInt32 index) const { result = getValue(index); }
    virtual void setValue(const GenericType& value, UInt32 index) = 0;
    virtual void push_back(const GenericType& value) = 0;
    void addValue(const GenericType& value) { push_back(value); }
    /// Inserts in front of the element.
    virtual void insertValue(const GenericType& value, UInt32 index) = 0;
    virtual void clear() = 0;
    virtual void resize(size_t count) = 0;
    virtual UInt32 getSize() const = 0;
    UInt32 size() const { return getSize(); }

    /// The stored elements without gaps; null when there are none. Any change of size ends the pointer's life.
    virtual UInt8* getData() = 0;
    /// OpenGL's name for the type of a stored component.
    virtual UInt32 getFormat() const = 0;
    /// Components of a stored element.
    virtual UInt32 getDimension() const = 0;
    /// 0: elements follow each other without gaps.
    UInt32 getStride() const { return 0; }

    /// A new property of the same class with the same elements and no users.
    virtual Ptr clone() const = 0;

    /// Tells every geometry that uses the property which of its fields changed.
    void changed(BitVector whichField, UInt32 origin) override;

protected:
    AbstractGeoProperty() = default;
};

/// A geometry property that stores its elements as an array of Description::Stored.
template <class Description>
class OSG_SYSTEMLIB_DLLMAPPING GeoProperty : public AbstractGeoProperty<typename Description::Kind> {
public:
    typedef AbstractGeoProperty<typename Description::Kind> Inherited;
    typedef FCPtr<typename Inherited::Ptr, GeoProperty> Ptr;
    typedef typename Inherited::GenericType GenericType;
    typedef typename Description::Stored StoredGenericType;
    typedef MField<StoredGenericType> StoredFieldType;

    /// A new, empty property without references; null before osgInit().
    static Ptr create();
    static FieldContainerType& getClassType();
    static UInt32 getClassTypeId() { return getClassType().getId(); }
    FieldContainerType& getType() override { return getClassType(); }
    const FieldContainerType& getType() const override { return getClassType(); }

    StoredFieldType& getField() { return field; }
    const StoredFieldType& getField() const { return field; }
    StoredFieldType* getFieldPtr() { return &field; }

    using Inherited::getValue;
    GenericType getValue(UInt32 index) const override;
    void setValue(const GenericType& value, UInt32 index) override;
    void push_back(const GenericType& value) override;
    void insertValue(const GenericType& value, UInt32 index) override;
    void clear() override;
    void resize(size_t count) override;
    UInt32 getSize() const override;
    UInt8* getData() override;
    UInt32 getFormat() const override;
    UInt32 getDimension() const override;
    typename Inherited::Ptr clone() const override;

private:
    GeoProperty() = default;

    StoredFieldType field;
};

/// Declares a kind of property: class NAME, its pointer types, and the value in which it is read and written.
#define OSG_GEO_PROPERTY_KIND(NAME, VALUE)                                                                             \
    struct OSG_SYSTEMLIB_DLLMAPPING NAME##Kind {                                                                       \
        typedef VALUE Value;                                                                                           \
        static constexpr const Char8* name = #NAME;                                                                    \
    };                                                                                                                 \
    extern template class OSG_SYSTEMLIB_DLLMAPPING AbstractGeoProperty<NAME##Kind>;                                    \
    typedef AbstractGeoProperty<NAME##Kind> NAME;                                                                      \
    typedef FCPtr<AttachmentPtr, NAME> NAME##Ptr;                                                                      \
    typedef RefPtr<NAME##Ptr> NAME##RefPtr

/// Declares a class of that kind: what it stores, and OpenGL's type and number of a stored element's components.
#define OSG_GEO_PROPERTY(KIND, NAME, STORED, FORMAT, DIMENSION)                                                        \
    struct OSG_SYSTEMLIB_DLLMAPPING NAME##Description {                                                                \
        typedef KIND##Kind Kind;                                                                                       \
        typedef STORED Stored;                                                                                         \
        static constexpr const Char8* name = #NAME;                                                                    \
        static constexpr UInt32 format = FORMAT;                                                                       \
        static constexpr UInt32 dimension = DIMENSION;                                                                 \
    };                                                                                                                 \
    extern template class OSG_SYSTEMLIB_DLLMAPPING GeoProperty<NAME##Description>;                                     \
    typedef GeoProperty<NAME##Description> NAME;                                                                       \
    typedef FCPtr<KIND##Ptr, NAME> NAME##Ptr;                                                                          \
    typedef RefPtr<NAME##Ptr> NAME##RefPtr

/// Fewer than three stored components are filled up with 0, a fourth is 1 when written and dropped when read.
OSG_GEO_PROPERTY_KIND(GeoPositions, Pnt3f);
OSG_GEO_PROPERTY(GeoPositions, GeoPositions2f, Pnt2f, GL_FLOAT, 2);
OSG_GEO_PROPERTY(GeoPositions, GeoPositions3f, Pnt3f, GL_FLOAT, 3);
OSG_GEO_PROPERTY(GeoPositions, GeoPositions4f, Pnt4f, GL_FLOAT, 4);
OSG_GEO_PROPERTY(GeoPositions, GeoPositions3d, Pnt3d, GL_DOUBLE, 3);
OSG_GEO_PROPERTY(GeoPositions, GeoPositions4d, Pnt4d, GL_DOUBLE, 4);

OSG_GEO_PROPERTY_KIND(GeoNormals, Vec3f);
OSG_GEO_PROPERTY(GeoNormals, GeoNormals3f, Vec3f, GL_FLOAT, 3);

/// Alpha is opaque when written and dropped when read. Bytes are 255 times the value, clamped and cut off.
OSG_GEO_PROPERTY_KIND(GeoColors, Color3f);
OSG_GEO_PROPERTY(GeoColors, GeoColors3f, Color3f, GL_FLOAT, 3);
OSG_GEO_PROPERTY(GeoColors, GeoColors4f, Color4f, GL_FLOAT, 4);
OSG_GEO_PROPERTY(GeoColors, GeoColors3ub, Color3ub, GL_UNSIGNED_BYTE, 3);
OSG_GEO_PROPERTY(GeoColors, GeoColors4ub, Color4ub, GL_UNSIGNED_BYTE, 4);

OSG_GEO_PROPERTY_KIND(GeoTexCoords, Vec2f);
OSG_GEO_PROPERTY(GeoTexCoords, GeoTexCoords2f, Vec2f, GL_FLOAT, 2);

/// Values too large for what is stored lose their high bits.
OSG_GEO_PROPERTY_KIND(GeoIndices, UInt32);
OSG_GEO_PROPERTY(GeoIndices, GeoIndicesUI16, UInt16, GL_UNSIGNED_SHORT, 1);
OSG_GEO_PROPERTY(GeoIndices, GeoIndicesUI32, UInt32, GL_UNSIGNED_INT, 1);

OSG_GEO_PROPERTY_KIND(GeoPTypes, UInt8);
OSG_GEO_PROPERTY(GeoPTypes, GeoPTypesUI8, UInt8, GL_UNSIGNED_BYTE, 1);

OSG_GEO_PROPERTY_KIND(GeoPLengths, UInt32);
OSG_GEO_PROPERTY(GeoPLengths, GeoPLengthsUI8, UInt8, GL_UNSIGNED_BYTE, 1);
OSG_GEO_PROPERTY(GeoPLengths, GeoPLengthsUI16, UInt16, GL_UNSIGNED_SHORT, 1);
OSG_GEO_PROPERTY(GeoPLengths, GeoPLengthsUI32, UInt32, GL_UNSIGNED_INT, 1);

#undef OSG_GEO_PROPERTY
#undef OSG_GEO_PROPERTY_KIND

typedef MField<Pnt2f> MFPnt2f;
typedef MField<Pnt3f> MFPnt3f;
typedef MField<Pnt4f> MFPnt4f;
typedef MField<Pnt3d> MFPnt3d;
typedef MField<Pnt4d> MFPnt4d;
typedef MField<Vec2f> MFVec2f;
typedef MField<Vec3f> MFVec3f;
typedef MField<Color3f> MFColor3f;
typedef MField<Color4f> MFColor4f;
typedef MField<Color3ub> MFColor3ub;
typedef MField<Color4ub> MFColor4ub;

} // namespace osg
