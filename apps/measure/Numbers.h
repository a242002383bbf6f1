#pragma once

#include <OpenSG/OSGVector.h>

#include <optional>
#include <string>
#include <string_view>

namespace tesk::measure {

/// How far from the origin a coordinate may be: squares of larger differences overflow single precision.
constexpr float largestCoordinate = 1e18f;

/// The number that the whole text spells, whatever the locale; nothing when it is none, not finite or not representable
/// in single precision. A leading plus sign is allowed, white space is not.
std::optional<float> parseNumber(std::string_view text);

/// The point of a text `x,y,z`; nothing when a part is not a number or beyond largestCoordinate.
std::optional<osg::Pnt3f> parsePoint(std::string_view text);

/// At most `digits` significant digits without trailing zeros, with a decimal point whatever the locale; the shorter of
/// fixed and exponent notation as `%g` has it. Minus zero is written as `0`, the rest as `nan`, `inf`, `-inf`.
std::string formatNumber(float value, int digits);

} // namespace tesk::measure
