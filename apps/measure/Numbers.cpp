#include <apps/measure/Numbers.h>

#include <array>
#include <charconv>
#include <cmath>

namespace tesk::measure {

std::optional<float> parseNumber(std::string_view text) {
    const bool hasPlus = text.size() > 1 && text[0] == '+' && text[1] != '-';
    if (hasPlus) text.remove_prefix(1);
    float value = 0.0f;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) return std::nullopt;
    return value;
}

std::optional<osg::Pnt3f> parsePoint(std::string_view text) {
    osg::Pnt3f point;
    for (osg::UInt32 axis = 0; axis < 3; ++axis) {
        const std::size_t comma = text.find(',');
        if ((comma == std::string_view::npos) != (axis == 2)) return std::nullopt;
        const auto coordinate = parseNumber(text.substr(0, comma));
        if (!coordinate || std::abs(*coordinate) > largestCoordinate) return std::nullopt;
        point[axis] = *coordinate;
        if (axis < 2) text.remove_prefix(comma + 1);
    }
    return point;
}

std::string formatNumber(float value, int digits) {
    if (value == 0.0f) return "0";
    std::array<char, 32> buffer;
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, digits);
    return error == std::errc() ? std::string(buffer.data(), end) : std::string();
}

} // namespace tesk::measure
