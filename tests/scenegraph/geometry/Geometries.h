#pragma once

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGGeometry.h>

#include <vector>

/// What a test geometry consists of. Empty types, lengths or indices are left null, as are positions when there are -1.
struct Content {
    std::vector<osg::UInt8> types;
    std::vector<osg::UInt32> lengths;
    int positionCount = 100;
    std::vector<osg::UInt32> indices = {};
    std::vector<osg::UInt16> mapping = {};
};

/// Position i is (i, 0, 0).
template <class Indices = osg::GeoIndicesUI32> osg::GeometryRefPtr geometryOf(const Content& content) {
    osg::osgInit(0, nullptr);
    const osg::GeometryRefPtr geometry(osg::Geometry::create());
    const auto set = [&](auto property, const auto& values, auto setter) {
        for (const auto value : values) property->push_back(value);
        if (!values.empty()) (geometry.getCPtr()->*setter)(property);
    };
    set(osg::GeoPTypesUI8::create(), content.types, &osg::Geometry::setTypes);
    set(osg::GeoPLengthsUI32::create(), content.lengths, &osg::Geometry::setLengths);
    set(Indices::create(), content.indices, &osg::Geometry::setIndices);
    if (content.positionCount >= 0) geometry->setPositions(osg::GeoPositions3f::create());
    for (int i = 0; i < content.positionCount; ++i)
        geometry->getPositions()->push_back(osg::Pnt3f(static_cast<float>(i), 0, 0));
    geometry->getIndexMapping().setValues(content.mapping);
    return geometry;
}
