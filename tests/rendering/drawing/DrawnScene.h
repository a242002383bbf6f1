#pragma once

#include <OpenSG/OSGMatrixCamera.h>
#include <OpenSG/OSGMatrixUtility.h>
#include <OpenSG/OSGPassiveWindow.h>
#include <OpenSG/OSGRenderAction.h>
#include <OpenSG/OSGSolidBackground.h>
#include <OpenSG/OSGViewport.h>
#include <rendering/picture/OffscreenContext.h>
#include <support/Scenes.h>

#include <GL/gl.h>

#include <cstdint>
#include <memory>
#include <vector>

extern "C" GLboolean glIsBuffer(GLuint name);

namespace tesk::test {

constexpr std::uint32_t red = 0xff0000, green = 0x00ff00, blue = 0x0000ff, white = 0xffffff, black = 0;

/// A picture of a scene before black, seen along -z: y from -1 to 1 fills it, x as much more as it is wide, z counts
/// from -1 to 1.
class DrawnScene {
public:
    static constexpr int size = 64;

    explicit DrawnScene(const SceneNode& root, int width = size, int height = size)
        : context(width, height, 0), aspect(float(width) / float(height)), scene(root) {
        osg::Matrix projection;
        osg::MatrixOrthogonal(projection, -aspect, aspect, -1.0f, 1.0f, -1.0f, 1.0f);
        camera->setProjectionMatrix(projection);
        viewport->setCamera(camera);
        viewport->setBackground(background);
        viewport->setRoot(scene);
        viewport->setSize(0, 0, 1, 1);
        window->init();
        window->resize(width, height);
        window->addPort(viewport);
        draw();
    }

    void draw() {
        context.makeCurrent();
        window->render(action.get());
        pixels = context.readPixels();
    }
    /// From now on only the lower left part of the picture is drawn.
    void resize(int width, int height) { window->resize(width, height); }
    osg::RenderAction& getAction() { return *action; }
    void dropAction() { action.reset(); }
    const std::vector<std::uint8_t>& getPixels() const { return pixels; }

    /// 0xrrggbb, each component rounded to one of 00, 33, 66, 99, cc, ff. Counted from the lower left.
    std::uint32_t pixelAt(int column, int row) const {
        return pixel((context.getHeight() - 1 - row) * context.getWidth() + column);
    }
    std::uint32_t colorAt(float x, float y) const {
        const auto toPixel = [](float place, int length) {
            return static_cast<int>((place + 1.0f) / 2.0f * float(length));
        };
        return pixelAt(toPixel(x / aspect, context.getWidth()), toPixel(y, context.getHeight()));
    }
    /// Pixels of that colour in the whole picture.
    int count(std::uint32_t color) const {
        int found = 0;
        for (int index = 0; index < context.getWidth() * context.getHeight(); ++index) found += pixel(index) == color;
        return found;
    }

private:
    std::uint32_t pixel(int index) const {
        std::uint32_t color = 0;
        for (int component = 3 * index; component < 3 * index + 3; ++component)
            color = color * 0x100 + (pixels[static_cast<std::size_t>(component)] + 25u) / 51u * 0x33u;
        return color;
    }

    rendering::OffscreenContext context;
    float aspect;
    osg::RefPtr<osg::PassiveWindowPtr> window{osg::PassiveWindow::create()};
    osg::RefPtr<osg::MatrixCameraPtr> camera{osg::MatrixCamera::create()};
    osg::RefPtr<osg::SolidBackgroundPtr> background{osg::SolidBackground::create()};
    osg::RefPtr<osg::ViewportPtr> viewport{osg::Viewport::create()};
    SceneNode scene;
    std::unique_ptr<osg::RenderAction> action{osg::RenderAction::create()};
    std::vector<std::uint8_t> pixels;
};

/// The buffer objects of the current OpenGL context.
inline int countBuffers() {
    int count = 0;
    for (GLuint name = 1; name < 10000; ++name) count += glIsBuffer(name);
    return count;
}

} // namespace tesk::test
