#pragma once

#include <measurement/geometry/Primitives.h>

#include <cstddef>
#include <cstdint>

namespace tesk::measurement::acceleration {

/// Triangles by number, their corners as numbers of shared positions. A view: the arrays belong to others.
struct TriangleMesh {
    /// One more follows the last, whatever it says: positions are read by four numbers.
    const osg::Pnt3f* positions = nullptr;
    /// Three for each triangle, all of positions that exist.
    const std::uint32_t* corners = nullptr;
    std::uint32_t triangleCount = 0;

    const osg::Pnt3f& corner(std::uint32_t triangle, std::size_t which) const {
        return positions[corners[std::size_t(3) * triangle + which]];
    }
    Triangle operator[](std::uint32_t triangle) const {
        return {corner(triangle, 0), corner(triangle, 1), corner(triangle, 2)};
    }
};

} // namespace tesk::measurement::acceleration
