#include <rendering/picture/OffscreenContext.h>

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GL/gl.h>
#include <GL/glext.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tesk::rendering {

namespace {

[[noreturn]] void fail(const std::string& cause) { throw std::runtime_error(cause); }

bool hasExtension(EGLDisplay display, std::string_view name) {
    const char* listed = eglQueryString(display, EGL_EXTENSIONS);
    const std::string extensions = " " + std::string(listed != nullptr ? listed : "") + " ";
    return extensions.find(" " + std::string(name) + " ") != std::string::npos;
}

template <typename Function> Function findFunction(const char* name) {
    return reinterpret_cast<Function>(eglGetProcAddress(name));
}

EGLDisplay surfacelessDisplay() {
    const auto getDisplay = findFunction<PFNEGLGETPLATFORMDISPLAYEXTPROC>("eglGetPlatformDisplayEXT");
    if (getDisplay == nullptr || !hasExtension(EGL_NO_DISPLAY, "EGL_MESA_platform_surfaceless")) return EGL_NO_DISPLAY;
    return getDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
}

EGLDisplay firstDeviceDisplay() {
    const auto getDisplay = findFunction<PFNEGLGETPLATFORMDISPLAYEXTPROC>("eglGetPlatformDisplayEXT");
    const auto getDevices = findFunction<PFNEGLQUERYDEVICESEXTPROC>("eglQueryDevicesEXT");
    if (getDisplay == nullptr || getDevices == nullptr) return EGL_NO_DISPLAY;
    EGLDeviceEXT device = nullptr;
    EGLint count = 0;
    if (!getDevices(1, &device, &count) || count == 0) return EGL_NO_DISPLAY;
    return getDisplay(EGL_PLATFORM_DEVICE_EXT, device, nullptr);
}

EGLDisplay defaultDisplay() { return eglGetDisplay(EGL_DEFAULT_DISPLAY); }

/// Whether contexts without a window can be made on it.
bool isUsable(EGLDisplay display) {
    return display != EGL_NO_DISPLAY && eglInitialize(display, nullptr, nullptr) &&
           hasExtension(display, "EGL_KHR_surfaceless_context");
}

/// Never terminated: it is the process's, and would take the contexts of others with it.
EGLDisplay openDisplay() {
    for (const auto candidate : {surfacelessDisplay, firstDeviceDisplay, defaultDisplay}) {
        const EGLDisplay display = candidate();
        if (isUsable(display)) return display;
    }
    fail("no OpenGL to be had (EGL finds no display that draws without a window)");
}

EGLContext createContext(EGLDisplay display) {
    const EGLint attributes[] = {EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT, EGL_SURFACE_TYPE, 0, EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    if (!eglBindAPI(EGL_OPENGL_API) || !eglChooseConfig(display, attributes, &config, 1, &count) || count == 0)
        fail("no OpenGL to be had (EGL offers none)");
    const EGLContext context = eglCreateContext(display, config, EGL_NO_CONTEXT, nullptr);
    if (context == EGL_NO_CONTEXT) fail("no OpenGL to be had (EGL makes no context)");
    return context;
}

GLint limitOf(GLenum name) {
    GLint limits[2] = {0, 0}; // the largest viewport has two numbers
    glGetIntegerv(name, limits);
    return limits[0];
}

std::string sizeText(int width, int height) { return std::to_string(width) + "x" + std::to_string(height); }

void checkWanted(int width, int height) {
    if (std::min(width, height) < 1 || std::max(width, height) > largestPictureSize)
        fail("a picture of " + sizeText(width, height) + " is not within 1x1 and " +
             sizeText(largestPictureSize, largestPictureSize));
}

void checkOffered(int width, int height) {
    const GLint largest = std::min(limitOf(GL_MAX_RENDERBUFFER_SIZE), limitOf(GL_MAX_VIEWPORT_DIMS));
    if (std::max(width, height) > largest)
        fail("a picture of " + sizeText(width, height) + " is beyond OpenGL's limit of " + sizeText(largest, largest));
}

} // namespace

/// A display's context and the two frame buffers: the one drawn to, and the one with a single sample a pixel that it is
/// resolved to for reading. Frees what was made so far, whenever that is.
struct OffscreenContext::Objects {
    EGLDisplay display = EGL_NO_DISPLAY;
    EGLContext context = EGL_NO_CONTEXT;
    GLuint drawn = 0;
    GLuint resolved = 0;

    ~Objects() {
        if (context == EGL_NO_CONTEXT) return;
        if (eglGetCurrentContext() == context) eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        eglDestroyContext(display, context); // and with it buffers of all kinds
    }

    void makeCurrent() const {
        if (!eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, context))
            fail("no OpenGL to be had (EGL does not let the context be used)");
        glBindFramebuffer(GL_FRAMEBUFFER, drawn);
    }
};

namespace {

void attachBuffer(GLenum attachment, GLenum format, int width, int height, int samples) {
    GLuint buffer = 0;
    glGenRenderbuffers(1, &buffer);
    glBindRenderbuffer(GL_RENDERBUFFER, buffer);
    glRenderbufferStorageMultisample(GL_RENDERBUFFER, samples, format, width, height);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, attachment, GL_RENDERBUFFER, buffer);
}

/// Leaves the new frame buffer bound.
GLuint createFrameBuffer(int width, int height, int samples, bool hasDepth) {
    GLuint frameBuffer = 0;
    glGenFramebuffers(1, &frameBuffer);
    glBindFramebuffer(GL_FRAMEBUFFER, frameBuffer);
    attachBuffer(GL_COLOR_ATTACHMENT0, GL_RGBA8, width, height, samples);
    if (hasDepth) attachBuffer(GL_DEPTH_ATTACHMENT, GL_DEPTH_COMPONENT24, width, height, samples);
    if (glCheckFramebufferStatus(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE || glGetError() != GL_NO_ERROR)
        fail("OpenGL has no frame buffer of " + sizeText(width, height));
    return frameBuffer;
}

} // namespace

OffscreenContext::OffscreenContext(int wantedWidth, int wantedHeight, int samples)
    : width(wantedWidth), height(wantedHeight), objects(std::make_unique<Objects>()) {
    checkWanted(width, height);
    objects->display = openDisplay();
    objects->context = createContext(objects->display);
    objects->makeCurrent();
    checkOffered(width, height);
    objects->resolved = createFrameBuffer(width, height, 0, false);
    objects->drawn = createFrameBuffer(width, height, std::clamp(samples, 0, limitOf(GL_MAX_SAMPLES)), true);
    glViewport(0, 0, width, height);
}

OffscreenContext::~OffscreenContext() = default;

void OffscreenContext::makeCurrent() { objects->makeCurrent(); }

std::vector<std::uint8_t> OffscreenContext::readPixels() const {
    constexpr std::size_t pixelSize = 3;
    const std::size_t rowSize = pixelSize * static_cast<std::size_t>(width);
    std::vector<std::uint8_t> pixels(rowSize * static_cast<std::size_t>(height));
    // What was refused in drawing, such as a line width below 0, is not missing here.
    glGetError();
    glBindFramebuffer(GL_READ_FRAMEBUFFER, objects->drawn);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, objects->resolved);
    glBlitFramebuffer(0, 0, width, height, 0, 0, width, height, GL_COLOR_BUFFER_BIT, GL_NEAREST);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, objects->resolved);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, pixels.data());
    glBindFramebuffer(GL_FRAMEBUFFER, objects->drawn);
    if (glGetError() != GL_NO_ERROR) fail("OpenGL does not deliver the picture");
    // OpenGL's first row is the lowest.
    for (std::size_t top = 0, bottom = pixels.size(); bottom - top > rowSize; top += rowSize) {
        bottom -= rowSize;
        std::swap_ranges(pixels.data() + top, pixels.data() + top + rowSize, pixels.data() + bottom);
    }
    return pixels;
}

} // namespace tesk::rendering
