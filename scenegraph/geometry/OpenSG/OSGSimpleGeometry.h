#pragma once

#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGNodePtr.h>

namespace osg {

/// The material of the simple shapes, and of all that has none: lit; and another without lighting. Made on demand,
/// shared by all, held until osgExit(); null when no container can be created.
OSG_SYSTEMLIB_DLLMAPPING MaterialPtr getDefaultMaterial();
OSG_SYSTEMLIB_DLLMAPPING MaterialPtr getDefaultUnlitMaterial();

/// Simple shapes round the origin, facing outward, with normals and texture coordinates.
///
/// Each comes as a geometry with the default material and as a node with that geometry. A count below the smallest that
/// makes the shape, a size that a shape cannot have, or more than 2^26 vertices give null.

/// A rectangle in the xy plane, facing +z, of hor by vert fields; each row of fields is a strip.
OSG_SYSTEMLIB_DLLMAPPING NodePtr makePlane(Real32 xsize, Real32 ysize, UInt16 hor, UInt16 vert);
OSG_SYSTEMLIB_DLLMAPPING GeometryPtr makePlaneGeo(Real32 xsize, Real32 ysize, UInt16 hor, UInt16 vert);

/// Six such rectangles: front (+z), back, right (+x), left, top (+y), bottom.
OSG_SYSTEMLIB_DLLMAPPING NodePtr makeBox(Real32 xsize, Real32 ysize, Real32 zsize, UInt16 hor, UInt16 vert,
                                         UInt16 depth);
OSG_SYSTEMLIB_DLLMAPPING GeometryPtr makeBoxGeo(Real32 xsize, Real32 ysize, Real32 zsize, UInt16 hor, UInt16 vert,
                                                UInt16 depth);

/// An icosahedron, each triangle cut into four depth times. Two indices a vertex: position with normal, and texture
/// coordinates.
OSG_SYSTEMLIB_DLLMAPPING NodePtr makeSphere(UInt16 depth, Real32 radius);
OSG_SYSTEMLIB_DLLMAPPING GeometryPtr makeSphereGeo(UInt16 depth, Real32 radius);

/// A sphere with poles on the y axis: a strip from pole to pole for each of longres sectors.
OSG_SYSTEMLIB_DLLMAPPING NodePtr makeLatLongSphere(UInt16 latres, UInt16 longres, Real32 radius);
OSG_SYSTEMLIB_DLLMAPPING GeometryPtr makeLatLongSphereGeo(UInt16 latres, UInt16 longres, Real32 radius);

/// A tube of innerRadius along a circle of outerRadius in the xy plane: a strip along the tube for each of its sides.
OSG_SYSTEMLIB_DLLMAPPING NodePtr makeTorus(Real32 innerRadius, Real32 outerRadius, UInt16 sides, UInt16 rings);
OSG_SYSTEMLIB_DLLMAPPING GeometryPtr makeTorusGeo(Real32 innerRadius, Real32 outerRadius, UInt16 sides, UInt16 rings);

/// Along the y axis: the side is one strip, the caps are polygons.
OSG_SYSTEMLIB_DLLMAPPING NodePtr makeCylinder(Real32 height, Real32 radius, UInt16 sides, bool doSide = true,
                                              bool doTop = true, bool doBottom = true);
OSG_SYSTEMLIB_DLLMAPPING GeometryPtr makeCylinderGeo(Real32 height, Real32 radius, UInt16 sides, bool doSide = true,
                                                     bool doTop = true, bool doBottom = true);

/// The same with its top drawn together to a point.
OSG_SYSTEMLIB_DLLMAPPING NodePtr makeCone(Real32 height, Real32 radius, UInt16 sides, bool doSide = true,
                                          bool doBottom = true);
OSG_SYSTEMLIB_DLLMAPPING GeometryPtr makeConeGeo(Real32 height, Real32 radius, UInt16 sides, bool doSide = true,
                                                 bool doBottom = true);

} // namespace osg
