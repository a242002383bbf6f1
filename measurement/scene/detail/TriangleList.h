#pragma once

#include <OpenSG/OSGGeometry.h>

#include <cstddef>
#include <cstdint>

namespace tesk::measurement::detail {

/// The triangles of a geometry where they lie in memory already, three numbers of positions for each: one primitive of
/// whole triangles with 32-bit indices, all below `positionCount`. Empty for other geometries, which may have
/// triangles all the same, but none for one that has lines. Ends with any change of the geometry.
struct TriangleList {
    TriangleList(const osg::GeometryPtr& geometry, std::size_t positionCount);

    const std::uint32_t* corners = nullptr;
    std::size_t count = 0;
};

} // namespace tesk::measurement::detail
