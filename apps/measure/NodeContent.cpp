#include <apps/measure/NodeContent.h>

#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGLineIterator.h>
#include <OpenSG/OSGTriangleIterator.h>

#include <cmath>

namespace tesk::measure {

namespace {

bool isFiniteAndNotZero(const osg::Vec3f& vector) {
    const bool isFinite = std::isfinite(vector[0]) && std::isfinite(vector[1]) && std::isfinite(vector[2]);
    return isFinite && (vector[0] != 0.0f || vector[1] != 0.0f || vector[2] != 0.0f);
}

} // namespace

NodeContent& NodeContent::operator+=(const NodeContent& other) {
    triangles += other.triangles;
    lines += other.lines;
    properTriangles += other.properTriangles;
    properLines += other.properLines;
    return *this;
}

NodeContent countContent(const osg::NodePtr& node) {
    NodeContent content;
    const osg::GeometryPtr geometry = osg::GeometryPtr::dcast(node->getCore());
    if (geometry == osg::NullFC || geometry->getPositions() == osg::NullFC) return content;
    const auto noTriangle = geometry->endTriangles();
    for (auto triangle = geometry->beginTriangles(); triangle != noTriangle; ++triangle) {
        const osg::Vec3f edge1 = triangle.getPosition(1) - triangle.getPosition(0);
        const osg::Vec3f edge2 = triangle.getPosition(2) - triangle.getPosition(0);
        ++content.triangles;
        content.properTriangles += isFiniteAndNotZero(edge1.cross(edge2));
    }
    const auto noLine = geometry->endLines();
    for (auto line = geometry->beginLines(); line != noLine; ++line) {
        ++content.lines;
        content.properLines += isFiniteAndNotZero(line.getPosition(1) - line.getPosition(0));
    }
    return content;
}

} // namespace tesk::measure
