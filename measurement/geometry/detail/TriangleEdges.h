#pragma once

#include <measurement/geometry/Primitives.h>

#include <array>

namespace tesk::measurement::detail {

/// The edges of a triangle in the order in which queries try them; of equal edges the first wins.
inline std::array<Segment, 3> edgesOf(const Triangle& triangle) {
    return {Segment{triangle.p2, triangle.p0}, Segment{triangle.p0, triangle.p1}, Segment{triangle.p1, triangle.p2}};
}

} // namespace tesk::measurement::detail
