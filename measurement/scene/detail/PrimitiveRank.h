#pragma once

#include <cstddef>
#include <cstdint>

/// A primitive's place in the order of a walk through a subtree: geometries in the order of the walk, triangles before
/// lines, both in the order of the geometry.
namespace tesk::measurement::detail {

inline std::uint64_t rankOfTriangles(std::size_t geometry) { return std::uint64_t(geometry) << 33; }
inline std::uint64_t rankOfSegments(std::size_t geometry) { return rankOfTriangles(geometry) | std::uint64_t(1) << 32; }

inline std::size_t geometryOf(std::uint64_t rank) { return static_cast<std::size_t>(rank >> 33); }
inline bool isSegment(std::uint64_t rank) { return (rank >> 32 & 1) != 0; }
/// Among its geometry's triangles or lines.
inline std::size_t primitiveOf(std::uint64_t rank) { return static_cast<std::size_t>(rank & 0xffffffffu); }

} // namespace tesk::measurement::detail
