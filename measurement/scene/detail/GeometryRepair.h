#pragma once

#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

namespace tesk::measurement::detail {

// A scene graph may trust a geometry: that there is a length for each type, that lengths end with the vertices, indices
// with the positions. These functions stand between it and a geometry of which that is not true.

/// Null if osg's iterators can walk over the geometry. Else one to walk over instead, which shares all but the lengths:
/// primitives end with the vertices, and with the last whole triangle, quad or line where the next one would read
/// beyond; without a length they are empty. With no lengths at all the first one has every vertex. Triangles and lines
/// may still have indices beyond the positions.
osg::RefPtr<osg::GeometryPtr> createWalkable(const osg::GeometryPtr& geometry);

/// For nodes of the subtree that the scene graph is about to compute the volume of, and cannot since their geometry has
/// lengths or indices that lead astray: gives them the volume of the vertices that are there.
void computeDoubtfulVolumes(const osg::NodePtr& node);

} // namespace tesk::measurement::detail
