#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace tesk::rendering {

/// The largest width and height of a picture, in pixels.
constexpr int largestPictureSize = 8192;

/// OpenGL without a screen: a context of its own that draws into a picture of fixed size.
///
/// Needs no X server: EGL on Mesa's surfaceless platform, else on the first EGL device, else on the default display.
/// The context is of the compatibility profile and current after construction; what is drawn with it goes to a frame
/// buffer with colour, depth and as many samples a pixel as asked for and the driver allows. Contexts may follow one
/// another and live side by side, all on the thread that made them. Destruction frees what belongs to the context,
/// objects of its users included.
///
/// \code
/// OffscreenContext context(640, 480);
/// window->init();
/// window->render(action);
/// const std::vector<std::uint8_t> rgb = context.readPixels();
/// \endcode
class OffscreenContext {
public:
    /// Size in pixels. Throws std::runtime_error, one line, for a size outside 1..largestPictureSize or beyond the
    /// driver's limit, and when there is no OpenGL to be had.
    OffscreenContext(int width, int height, int samples = 4);
    ~OffscreenContext();
    OffscreenContext(const OffscreenContext&) = delete;
    OffscreenContext& operator=(const OffscreenContext&) = delete;

    int getWidth() const { return width; }
    int getHeight() const { return height; }

    /// Makes this the thread's context again, after another took its place, and its frame buffer the one drawn to.
    void makeCurrent();
    /// What has been drawn so far: three bytes a pixel, red first, rows from the top without padding. The context has
    /// to be current. Throws std::runtime_error when OpenGL cannot deliver it, say for want of memory.
    std::vector<std::uint8_t> readPixels() const;

private:
    struct Objects;

    int width;
    int height;
    std::unique_ptr<Objects> objects;
};

} // namespace tesk::rendering
