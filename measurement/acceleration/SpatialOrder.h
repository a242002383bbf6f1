#pragma once

#include <OpenSG/OSGVector.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tesk::measurement::acceleration {

/// The numbers of primitives so that those next to each other in the order are mostly near each other.
///
/// Each has so many corners, numbers of positions. First corners are sorted along a Morton curve of 1024 cells an axis;
/// of equal cells the lower number comes first. Coordinates that are not finite may come anywhere. Time and memory, 20
/// bytes each, are linear.
std::vector<std::uint32_t> orderAlongCurve(const osg::Pnt3f* positions, const std::uint32_t* corners,
                                           std::size_t cornerCount, std::size_t count);

} // namespace tesk::measurement::acceleration
