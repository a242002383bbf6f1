#include <apps/measure/PictureOptions.h>

#include <apps/measure/Numbers.h>

#include <rendering/picture/OffscreenContext.h>

#include <algorithm>
#include <charconv>
#include <utility>

namespace tesk::measure {

namespace {

/// A number that is the whole text, without sign.
std::optional<int> parseWholeNumber(std::string_view text, int base, int largest) {
    const bool startsWithDigit = !text.empty() && text[0] != '-';
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    const bool isWhole = startsWithDigit && error == std::errc() && end == text.data() + text.size();
    return isWhole && number <= largest ? std::optional<int>(number) : std::nullopt;
}

osg::Color3f colorOfBytes(int red, int green, int blue) {
    const auto fraction = [](int byte) { return static_cast<float>(byte) / 255.0f; };
    return {fraction(red), fraction(green), fraction(blue)};
}

std::optional<osg::Color3f> parseHexadecimalColor(std::string_view digits) {
    if (digits.size() != 6) return std::nullopt;
    const auto red = parseWholeNumber(digits.substr(0, 2), 16, 255);
    const auto green = parseWholeNumber(digits.substr(2, 2), 16, 255);
    const auto blue = parseWholeNumber(digits.substr(4, 2), 16, 255);
    if (!red || !green || !blue) return std::nullopt;
    return colorOfBytes(*red, *green, *blue);
}

} // namespace

std::optional<PictureSize> parsePictureSize(std::string_view text) {
    const std::size_t cross = text.find('x');
    if (cross == std::string_view::npos) return std::nullopt;
    const auto width = parseWholeNumber(text.substr(0, cross), 10, rendering::largestPictureSize);
    const auto height = parseWholeNumber(text.substr(cross + 1), 10, rendering::largestPictureSize);
    if (!width || !height || *width == 0 || *height == 0) return std::nullopt;
    return PictureSize{*width, *height};
}

std::optional<osg::Vec3f> parseView(std::string_view text) {
    const std::pair<std::string_view, osg::Vec3f> names[] = {
        {"iso", {1, -1, 1}},  {"front", {0, -1, 0}}, {"back", {0, 1, 0}},    {"left", {-1, 0, 0}},
        {"right", {1, 0, 0}}, {"top", {0, 0, 1}},    {"bottom", {0, 0, -1}},
    };
    for (const auto& [name, view] : names)
        if (text == name) return view;
    const auto point = parsePoint(text);
    if (!point || ((*point)[0] == 0.0f && (*point)[1] == 0.0f && (*point)[2] == 0.0f)) return std::nullopt;
    return osg::Vec3f((*point)[0], (*point)[1], (*point)[2]);
}

std::optional<osg::Color3f> parseColor(std::string_view text) {
    const std::pair<std::string_view, osg::Color3f> names[] = {
        {"dark", PictureOptions().background}, {"light", colorOfBytes(208, 213, 219)},
        {"black", colorOfBytes(0, 0, 0)},      {"white", colorOfBytes(255, 255, 255)},
        {"gray", colorOfBytes(128, 128, 128)}, {"grey", colorOfBytes(128, 128, 128)},
        {"blue", colorOfBytes(31, 58, 95)},
    };
    for (const auto& [name, color] : names)
        if (text == name) return color;
    if (!text.empty() && text[0] == '#') return parseHexadecimalColor(text.substr(1));
    const auto parts = parsePoint(text);
    if (!parts) return std::nullopt;
    for (osg::UInt32 i = 0; i < 3; ++i)
        if ((*parts)[i] < 0.0f || (*parts)[i] > 255.0f) return std::nullopt;
    return osg::Color3f((*parts)[0] / 255.0f, (*parts)[1] / 255.0f, (*parts)[2] / 255.0f);
}

} // namespace tesk::measure
