#include <rendering/picture/PngEncoding.h>

#include <png.h>

#include <cassert>
#include <stdexcept>

namespace tesk::rendering {

std::string encodePng(int width, int height, const std::vector<std::uint8_t>& pixels) {
    assert(pixels.size() == std::size_t{3} * static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = PNG_FORMAT_RGB;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::string bytes(size, '\0');
    if (png_image_write_to_memory(&image, bytes.data(), &size, 0, pixels.data(), 0, nullptr) == 0)
        throw std::runtime_error("cannot encode the picture: " + std::string(image.message));
    bytes.resize(size);
    return bytes;
}

} // namespace tesk::rendering
