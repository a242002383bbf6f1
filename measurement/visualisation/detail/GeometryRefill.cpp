#include <measurement/visualisation/detail/GeometryRefill.h>

#include <measurement/visualisation/detail/Subtree.h>

namespace tesk::measurement::detail {

namespace {

template <class PropertyPtr, class Value> void replaceBy(const PropertyPtr& property, const Value& value) {
    const osg::CPEditor edit(property);
    property->clear();
    property->push_back(value);
}

} // namespace

osg::NodePtr createRefillableGeometry(const osg::MaterialPtr& material, const osg::GeoColorsPtr& colors) {
    const osg::NodePtr node = createGeometry(material);
    const osg::GeometryPtr geometry = getGeometry(node);
    const osg::CPEditor edit(geometry);
    geometry->setTypes(osg::GeoPTypesUI8::create());
    geometry->setLengths(osg::GeoPLengthsUI32::create());
    geometry->setPositions(osg::GeoPositions3f::create());
    geometry->setIndices(osg::GeoIndicesUI32::create());
    geometry->setColors(colors);
    return node;
}

GeometryRefill::GeometryRefill(const osg::NodePtr& node, osg::UInt8 primitiveType)
    : geometry(getGeometry(node)), positions(geometry->getPositions()), indices(geometry->getIndices()),
      colors(geometry->getColors()) {
    replaceBy(geometry->getTypes(), primitiveType);
    positions->clear();
    indices->clear();
    if (colors != osg::NullFC) colors->clear();
}

GeometryRefill::~GeometryRefill() {
    osg::endEditCP(positions);
    osg::endEditCP(indices);
    if (colors != osg::NullFC) osg::endEditCP(colors);
    replaceBy(geometry->getLengths(), indices->getSize());
}

void GeometryRefill::addVertex(const osg::Pnt3f& position) {
    indices->push_back(positions->getSize());
    positions->push_back(position);
}

void GeometryRefill::addVertex(const osg::Pnt3f& position, const osg::Color3f& color) {
    addVertex(position);
    colors->push_back(color);
}

void GeometryRefill::addVertex(const osg::Pnt3f& position, const osg::Color4f& color) {
    addVertex(position);
    osg::GeoColors4fPtr::dcast(colors)->getField().push_back(color);
}

} // namespace tesk::measurement::detail
