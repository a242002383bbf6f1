#pragma once

#include <limits>

namespace tesk::measurement::detail {

/// Where every search for a smallest value starts: 3.4028235e38.
constexpr float largestFloat = std::numeric_limits<float>::max();

/// Squared distance up to which two triangles count as touching: 2 to the power -23.
constexpr float touchingDistance = 1.1920929e-07f;

} // namespace tesk::measurement::detail
