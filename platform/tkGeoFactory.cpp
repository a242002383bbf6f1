#include <platform/tkGeoFactory.h>

#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGSimpleGeometry.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

/// A node that draws all points, in their order, once as each of the types.
osg::NodePtr makeShape(const std::vector<osg::Pnt3f>& points, const std::vector<osg::UInt8>& primitiveTypes) {
    const osg::GeometryPtr geometry = osg::Geometry::create();
    if (geometry == osg::NullFC) return osg::NullFC;
    const osg::GeoPositions3fPtr positions = osg::GeoPositions3f::create();
    const osg::GeoPTypesUI8Ptr types = osg::GeoPTypesUI8::create();
    const osg::GeoPLengthsUI32Ptr lengths = osg::GeoPLengthsUI32::create();
    const osg::GeoIndicesUI32Ptr indices = osg::GeoIndicesUI32::create();
    const auto count = static_cast<osg::UInt32>(points.size());
    for (const osg::Pnt3f& point : points) positions->getFieldPtr()->push_back(point);
    for (const osg::UInt8 type : primitiveTypes) {
        types->getFieldPtr()->push_back(type);
        lengths->getFieldPtr()->push_back(count);
        for (osg::UInt32 index = 0; index < count; ++index) indices->getFieldPtr()->push_back(index);
    }
    {
        const osg::CPEditor edit(geometry);
        geometry->setPositions(positions);
        geometry->setTypes(types);
        geometry->setLengths(lengths);
        geometry->setIndices(indices);
        geometry->setMaterial(osg::getDefaultUnlitMaterial());
    }
    return osg::makeNodeFor(geometry);
}

} // namespace

osg::NodePtr tkGeoFactory::makeLine(float length) {
    return makeShape({osg::Pnt3f(0.0f, 0.0f, 0.0f), osg::Pnt3f(length, 0.0f, 0.0f)}, {GL_LINES});
}

osg::NodePtr tkGeoFactory::makeLineTorus(float radius, int segments, bool filled) {
    const int count = std::min(std::max(segments, 3), 65536);
    const float step = 2.0f * osg::Pi / static_cast<float>(count);
    std::vector<osg::Pnt3f> ring;
    for (int i = 0; i < count; ++i) {
        const float angle = static_cast<float>(i) * step;
        ring.push_back(osg::Pnt3f(radius * std::cos(angle), radius * std::sin(angle), 0.0f));
    }
    return makeShape(ring, filled ? std::vector<osg::UInt8>{GL_POLYGON, GL_LINE_LOOP}
                                  : std::vector<osg::UInt8>{GL_LINE_LOOP});
}
