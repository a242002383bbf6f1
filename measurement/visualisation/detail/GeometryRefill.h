#pragma once

#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGMaterial.h>
#include <OpenSG/OSGNode.h>

namespace tesk::measurement::detail {

/// A new node with a geometry for refills: empty positions, indices, types and lengths of its own. The colours, one a
/// vertex, are an empty property of the class wanted, or null to leave the colour to the material.
osg::NodePtr createRefillableGeometry(const osg::MaterialPtr& material, const osg::GeoColorsPtr& colors);

/// Replaces the content of a geometry made by createRefillableGeometry() by one primitive of the vertices added while
/// this object lives; its end ends the edits. The properties stay the same objects and keep their memory.
///
/// \code
/// GeometryRefill refill(node, GL_LINES);
/// refill.addVertex(start);
/// refill.addVertex(end);
/// \endcode
class GeometryRefill {
public:
    GeometryRefill(const osg::NodePtr& node, osg::UInt8 primitiveType);
    ~GeometryRefill();
    GeometryRefill(const GeometryRefill&) = delete;
    GeometryRefill& operator=(const GeometryRefill&) = delete;

    /// For a geometry without colours.
    void addVertex(const osg::Pnt3f& position);
    void addVertex(const osg::Pnt3f& position, const osg::Color3f& color);
    /// Only for a geometry whose colours are osg::GeoColors4f.
    void addVertex(const osg::Pnt3f& position, const osg::Color4f& color);

private:
    osg::GeometryPtr geometry;
    osg::GeoPositionsPtr positions;
    osg::GeoIndicesPtr indices;
    osg::GeoColorsPtr colors;
};

} // namespace tesk::measurement::detail
