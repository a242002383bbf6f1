#include <OpenSG/OSGGeoProperty.h>

#include <OpenSG/OSGGeometry.h>

namespace osg {

namespace {

/// An element as another type of the same kind of data.
template <class To, class From> To converted(const From& value) { return To(value); }

/// A position with a fourth component, which is 1 when it was not given.
template <class To> To homogeneous(const Pnt3f& position) {
    To result(position);
    result[3] = 1;
    return result;
}

template <> Pnt4f converted(const Pnt3f& position) { return homogeneous<Pnt4f>(position); }
template <> Pnt4d converted(const Pnt3f& position) { return homogeneous<Pnt4d>(position); }

UInt8 colorByte(Real32 component) {
    // Written so that NaN becomes 0.
    if (!(component > 0.0f)) return 0;
    return static_cast<UInt8>(osgMin(component, 1.0f) * 255.0f);
}

Real32 colorFraction(UInt8 component) { return static_cast<Real32>(component) / 255.0f; }

template <> Color4f converted(const Color3f& color) { return Color4f(color.red(), color.green(), color.blue(), 1.0f); }
template <> Color3f converted(const Color4f& color) { return Color3f(color.red(), color.green(), color.blue()); }
template <> Color3ub converted(const Color3f& color) {
    return Color3ub(colorByte(color.red()), colorByte(color.green()), colorByte(color.blue()));
}
template <> Color3f converted(const Color3ub& color) {
    return Color3f(colorFraction(color.red()), colorFraction(color.green()), colorFraction(color.blue()));
}
template <> Color4ub converted(const Color3f& color) {
    return Color4ub(colorByte(color.red()), colorByte(color.green()), colorByte(color.blue()), 255);
}
template <> Color3f converted(const Color4ub& color) {
    return Color3f(colorFraction(color.red()), colorFraction(color.green()), colorFraction(color.blue()));
}

} // namespace

template <class Kind> FieldContainerType& AbstractGeoProperty<Kind>::getClassType() {
    static FieldContainerType type(Kind::name, &Inherited::getClassType());
    return type;
}

template <class Kind> void AbstractGeoProperty<Kind>::changed(BitVector whichField, UInt32 origin) {
    for (const FieldContainerPtr& parent : getParents()) {
        const GeometryPtr geometry = GeometryPtr::dcast(parent);
        if (geometry != NullFC) geometry->changed(geometry->getFieldsUsing(Ptr(*this)), ChangedOrigin::Child);
    }
    Inherited::changed(whichField, origin);
}

template <class Description> typename GeoProperty<Description>::Ptr GeoProperty<Description>::create() {
    return FieldContainer::isSystemRunning() ? Ptr(*new GeoProperty) : Ptr();
}

template <class Description> FieldContainerType& GeoProperty<Description>::getClassType() {
    static FieldContainerType type(Description::name, &Inherited::getClassType());
    return type;
}

template <class Description>
typename GeoProperty<Description>::GenericType GeoProperty<Description>::getValue(UInt32 index) const {
    return converted<GenericType>(field[index]);
}

template <class Description> void GeoProperty<Description>::setValue(const GenericType& value, UInt32 index) {
    field[index] = converted<StoredGenericType>(value);
}

template <class Description> void GeoProperty<Description>::push_back(const GenericType& value) {
    field.push_back(converted<StoredGenericType>(value));
}

template <class Description> void GeoProperty<Description>::insertValue(const GenericType& value, UInt32 index) {
    field.insert(field.begin() + index, converted<StoredGenericType>(value));
}

template <class Description> void GeoProperty<Description>::clear() { field.clear(); }

template <class Description> void GeoProperty<Description>::resize(size_t count) { field.resize(count); }

template <class Description> UInt32 GeoProperty<Description>::getSize() const { return field.getSize(); }

template <class Description> UInt8* GeoProperty<Description>::getData() {
    return field.empty() ? nullptr : reinterpret_cast<UInt8*>(field.data());
}

template <class Description> UInt32 GeoProperty<Description>::getFormat() const { return Description::format; }

template <class Description> UInt32 GeoProperty<Description>::getDimension() const { return Description::dimension; }

template <class Description> typename GeoProperty<Description>::Inherited::Ptr GeoProperty<Description>::clone() const {
    const Ptr copy = create();
    if (copy != NullFC) copy->field = field;
    return copy;
}

template class AbstractGeoProperty<GeoPositionsKind>;
template class AbstractGeoProperty<GeoNormalsKind>;
template class AbstractGeoProperty<GeoColorsKind>;
template class AbstractGeoProperty<GeoTexCoordsKind>;
template class AbstractGeoProperty<GeoIndicesKind>;
template class AbstractGeoProperty<GeoPTypesKind>;
template class AbstractGeoProperty<GeoPLengthsKind>;

template class GeoProperty<GeoPositions2fDescription>;
template class GeoProperty<GeoPositions3fDescription>;
template class GeoProperty<GeoPositions4fDescription>;
template class GeoProperty<GeoPositions3dDescription>;
template class GeoProperty<GeoPositions4dDescription>;
template class GeoProperty<GeoNormals3fDescription>;
template class GeoProperty<GeoColors3fDescription>;
template class GeoProperty<GeoColors4fDescription>;
template class GeoProperty<GeoColors3ubDescription>;
template class GeoProperty<GeoColors4ubDescription>;
template class GeoProperty<GeoTexCoords2fDescription>;
template class GeoProperty<GeoIndicesUI16Description>;
template class GeoProperty<GeoIndicesUI32Description>;
template class GeoProperty<GeoPTypesUI8Description>;
template class GeoProperty<GeoPLengthsUI8Description>;
template class GeoProperty<GeoPLengthsUI16Description>;
template class GeoProperty<GeoPLengthsUI32Description>;

} // namespace osg
