#include <apps/measure/TerminalText.h>

#include <algorithm>
#include <cstdint>

namespace tesk::measure {

namespace {

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0u) == 0x80u; }

/// Bytes of the character that the text begins with, 0 when it is malformed or steers a terminal.
std::size_t printableCharacterLength(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0x80u) return lead >= 0x20u && lead != 0x7Fu ? 1 : 0;
    const std::size_t length = lead >= 0xF0u ? 4 : lead >= 0xE0u ? 3 : 2;
    if (lead < 0xC2u || lead > 0xF4u || text.size() < length) return 0;
    if (!std::all_of(text.begin() + 1, text.begin() + static_cast<std::ptrdiff_t>(length), isContinuation)) return 0;
    std::uint32_t code = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) code = (code << 6u) | (static_cast<unsigned char>(text[i]) & 0x3Fu);
    const bool isOverlong = (length == 3 && code < 0x800u) || (length == 4 && code < 0x10000u);
    const bool isSurrogate = code >= 0xD800u && code <= 0xDFFFu;
    const bool isControl = code < 0xA0u || (code >= 0x2028u && code <= 0x202Eu) || (code >= 0x2066u && code <= 0x2069u);
    return isOverlong || isSurrogate || isControl || code > 0x10FFFFu ? 0 : length;
}

} // namespace

std::string printable(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::size_t length = printableCharacterLength(text);
        if (length == 0)
            result += '?';
        else
            result += text.substr(0, length);
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return result;
}

std::size_t displayWidth(std::string_view text) {
    return text.size() - static_cast<std::size_t>(std::count_if(text.begin(), text.end(), isContinuation));
}

std::string_view shortened(std::string_view text, std::size_t columns) {
    std::size_t end = 0;
    for (std::size_t width = 0; end < text.size(); ++end) {
        if (!isContinuation(text[end]) && ++width > columns) break;
    }
    return text.substr(0, end);
}

} // namespace tesk::measure
