#pragma once

#include <rendering/import/detail/FlatScene.h>

namespace tesk::rendering::detail {

/// Cuts a polygon of n corners (n at least 3) into n - 2 triangles of corner numbers with the polygon's orientation.
///
/// A convex polygon becomes a fan about corner 0. What is left when no ear can be found (the polygon crosses itself or
/// has no area) becomes a fan too, so that nothing is lost.
///
/// Linear for a convex polygon; otherwise a corner is tested against those that are reflex.
///
/// Method: clipping of ears in the projection along the largest component of Newell's normal (Meisters, Polygons have
/// ears, American Mathematical Monthly 82, 1975).
std::vector<std::array<std::uint32_t, 3>> triangulate(const std::vector<Point>& polygon);

} // namespace tesk::rendering::detail
