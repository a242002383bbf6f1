#pragma once

#include <string>
#include <string_view>

namespace tesk::measure {

/// The text with every control character and every byte that is not part of well-formed UTF-8 replaced by `?`: one
/// line that cannot steer the terminal.
std::string printable(std::string_view text);

/// Columns that well-formed UTF-8 takes on a terminal, one a character.
std::size_t displayWidth(std::string_view text);

/// The longest beginning of well-formed UTF-8 that takes at most so many columns.
std::string_view shortened(std::string_view text, std::size_t columns);

} // namespace tesk::measure
