#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tesk::rendering {

/// The bytes of a PNG file with the picture: three bytes a pixel, red first, rows from the top without padding.
///
/// Throws std::runtime_error, one line, when the encoder fails.
std::string encodePng(int width, int height, const std::vector<std::uint8_t>& pixels);

} // namespace tesk::rendering
