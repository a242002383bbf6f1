#pragma once

#include <OpenSG/OSGGeometry.h>

namespace tesk::rendering {

/// A copy of a geometry's triangles that light can shade; null when it has none.
///
/// Each corner has a normal of its own: the sum of the normals, by area, of those triangles round the same position
/// that lie within 40 degrees of the corner's own triangle, whichever way they are wound. So curved surfaces look
/// smooth and edges stay sharp. Triangles without an area are left out. Takes time and memory proportional to the
/// number of triangles.
osg::GeometryPtr makeShadedTriangles(const osg::GeometryPtr& geometry);

/// Puts the triangles of such a copy into the order in which a transparent surface has to be drawn, the farthest from
/// the eye first. The eye is in the geometry's own coordinates.
void sortBackToFront(const osg::GeometryPtr& shaded, const osg::Pnt3f& eye);

/// A copy of a geometry's lines; null when it has none.
osg::GeometryPtr makeLines(const osg::GeometryPtr& geometry);

} // namespace tesk::rendering
