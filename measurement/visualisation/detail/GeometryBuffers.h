#pragma once

#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGMaterial.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

#include <vector>

namespace tesk::measurement::detail {

/// Primitives over a property of positions: types, lengths and indices, filled once and shared by all geometries of one
/// role, of which each has positions of its own.
class GeometryBuffers {
public:
    struct Primitive {
        osg::UInt8 type;
        std::vector<osg::UInt32> indices;
    };

    explicit GeometryBuffers(const std::vector<Primitive>& primitives);

    /// A new node with a new geometry of these primitives.
    osg::NodePtr createGeometry(const osg::GeoPositionsPtr& positions, const osg::MaterialPtr& material) const;

private:
    osg::RefPtr<osg::GeoPTypesUI8Ptr> types;
    osg::RefPtr<osg::GeoPLengthsUI32Ptr> lengths;
    osg::RefPtr<osg::GeoIndicesUI32Ptr> indices;
};

} // namespace tesk::measurement::detail
