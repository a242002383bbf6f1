#include "OffscreenContext.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GL/gl.h>

#include <fstream>
#include <vector>

bool makeOffscreenContext(int width, int height) {
    const EGLDisplay display = eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    const EGLint wanted[] = {EGL_SURFACE_TYPE,
                             EGL_PBUFFER_BIT,
                             EGL_RENDERABLE_TYPE,
                             EGL_OPENGL_BIT,
                             EGL_RED_SIZE,
                             8,
                             EGL_GREEN_SIZE,
                             8,
                             EGL_BLUE_SIZE,
                             8,
                             EGL_DEPTH_SIZE,
                             24,
                             EGL_NONE};
    const EGLint size[] = {EGL_WIDTH, width, EGL_HEIGHT, height, EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    if (!eglInitialize(display, nullptr, nullptr) || !eglBindAPI(EGL_OPENGL_API) ||
        !eglChooseConfig(display, wanted, &config, 1, &count) || count == 0)
        return false;
    const EGLSurface surface = eglCreatePbufferSurface(display, config, size);
    const EGLContext context = eglCreateContext(display, config, EGL_NO_CONTEXT, nullptr);
    return eglMakeCurrent(display, surface, surface, context);
}

bool writePicture(const std::string& file, int width, int height) {
    std::vector<char> row(3 * static_cast<std::size_t>(width));
    std::ofstream stream(file, std::ios::binary);
    stream << "P6\n" << width << ' ' << height << "\n255\n";
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    for (int y = height - 1; y >= 0; --y) {
        glReadPixels(0, y, width, 1, GL_RGB, GL_UNSIGNED_BYTE, row.data());
        stream.write(row.data(), static_cast<std::streamsize>(row.size()));
    }
    return stream.flush().good();
}
