#include <measurement/visualisation/detail/GeometryBuffers.h>

#include <OpenSG/OSGNodePtr.h>

namespace tesk::measurement::detail {

GeometryBuffers::GeometryBuffers(const std::vector<Primitive>& primitives)
    : types(osg::GeoPTypesUI8::create()), lengths(osg::GeoPLengthsUI32::create()),
      indices(osg::GeoIndicesUI32::create()) {
    const osg::CPEditor typesEdit(types);
    const osg::CPEditor lengthsEdit(lengths);
    const osg::CPEditor indicesEdit(indices);
    for (const Primitive& primitive : primitives) {
        types->push_back(primitive.type);
        lengths->push_back(static_cast<osg::UInt32>(primitive.indices.size()));
        for (const osg::UInt32 index : primitive.indices) indices->push_back(index);
    }
}

osg::NodePtr GeometryBuffers::createGeometry(const osg::GeoPositionsPtr& positions,
                                             const osg::MaterialPtr& material) const {
    osg::GeometryPtr geometry;
    const osg::NodePtr node = osg::makeCoredNode<osg::Geometry>(&geometry);
    const osg::CPEditor edit(geometry);
    geometry->setTypes(types.get());
    geometry->setLengths(lengths.get());
    geometry->setIndices(indices.get());
    geometry->setPositions(positions);
    geometry->setMaterial(material);
    return node;
}

} // namespace tesk::measurement::detail
