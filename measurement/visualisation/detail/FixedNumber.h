#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <string>

namespace tesk::measurement::detail {

/// No number has more digits after the decimal point; further ones would be zeros without end.
constexpr int mostFixedDigits = 1074;

/// A number in fixed notation with that many digits after a decimal point, as a string stream writes it in the classic
/// locale, whatever the global one is: fewer than 0 digits count as 6, NaN and infinity read "nan" and "inf". At most
/// mostFixedDigits are written.
inline std::string fixedNumber(double value, int digits) {
    // Sign, point and the digits of the largest double come before those asked for.
    std::array<char, 2 + std::numeric_limits<double>::max_exponent10 + 1 + mostFixedDigits> text;
    const int precision = std::min(digits, mostFixedDigits);
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, precision);
    return std::string(text.data(), end.ptr);
}

inline std::string fixedNumber(float value, int digits) { return fixedNumber(static_cast<double>(value), digits); }

} // namespace tesk::measurement::detail
