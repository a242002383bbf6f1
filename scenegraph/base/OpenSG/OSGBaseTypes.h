#pragma once

#include <OpenSG/OSGConfig.h>

#include <cstdint>

namespace osg {

using Int8 = std::int8_t;
using Int16 = std::int16_t;
using Int32 = std::int32_t;
using Int64 = std::int64_t;
using UInt8 = std::uint8_t;
using UInt16 = std::uint16_t;
using UInt32 = std::uint32_t;
using UInt64 = std::uint64_t;
using Real32 = float;
using Real64 = double;
using Char8 = char;
using UChar8 = unsigned char;

/// A set of field bits.
using BitVector = UInt64;
/// Seconds.
using Time = Real64;

/// Tolerance of comparisons between points, vectors, colours, matrices and quaternions.
inline constexpr Real32 Eps = 1e-6f;
inline constexpr Real32 Pi = 3.14159265358979323846f;
/// Larger than any length in a scene; not the IEEE infinity.
inline constexpr Real32 Inf = 1e30f;
inline constexpr Real32 NegInf = -1e30f;

} // namespace osg
