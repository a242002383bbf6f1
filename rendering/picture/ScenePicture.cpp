#include <rendering/picture/ScenePicture.h>

#include <OpenSG/OSGDirectionalLight.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGNodePtr.h>
#include <OpenSG/OSGPassiveWindow.h>
#include <OpenSG/OSGPerspectiveCamera.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGRenderAction.h>
#include <OpenSG/OSGSolidBackground.h>
#include <OpenSG/OSGTransform.h>
#include <OpenSG/OSGViewport.h>

#include <memory>

namespace tesk::rendering {

namespace {

template <typename Ptr> using Reference = osg::RefPtr<Ptr>;

osg::NodePtr makeCameraNode(const FittedView& view) {
    const osg::TransformPtr transform = osg::Transform::create();
    transform->setMatrix(view.cameraToWorld);
    return osg::makeNodeFor(transform);
}

/// A light in the camera's frame, from in front of what it sees (1) or from behind (-1).
osg::NodePtr makeLightNode(const osg::NodePtr& beacon, float side) {
    const bool isFront = side > 0.0f;
    const float ambient = isFront ? 1.0f : 0.0f, specular = isFront ? 1.0f : 0.0f;
    const osg::DirectionalLightPtr light = osg::DirectionalLight::create();
    const osg::CPEditor editor(light);
    light->setBeacon(beacon);
    // Over the shoulder, so that the faces of a box differ from any side.
    light->setDirection(-0.2f * side, 0.35f * side, side);
    light->setDiffuse(1.0f, 1.0f, 1.0f, 1.0f);
    light->setSpecular(specular, specular, specular, 1.0f);
    light->setAmbient(ambient, ambient, ambient, 1.0f);
    return osg::makeNodeFor(light);
}

osg::PerspectiveCameraPtr makeCamera(const FittedView& view, const osg::NodePtr& beacon) {
    const osg::PerspectiveCameraPtr camera = osg::PerspectiveCamera::create();
    const osg::CPEditor editor(camera);
    camera->setBeacon(beacon);
    camera->setFov(FittedView::fieldOfView);
    camera->setNear(view.nearPlane);
    camera->setFar(view.farPlane);
    return camera;
}

osg::SolidBackgroundPtr makeBackground(const osg::Color3f& color) {
    const osg::SolidBackgroundPtr background = osg::SolidBackground::create();
    const osg::CPEditor editor(background);
    background->setColor(color);
    return background;
}

void addChild(const osg::NodePtr& parent, const osg::NodePtr& child) {
    const osg::CPEditor editor(parent, osg::Node::ChildrenFieldMask);
    parent->addChild(child);
}

/// A root with the lights and the camera, below which the scene hangs as long as this lives.
///
/// The second light shines from behind on the faces whose normals point away from the camera, so that they look as if
/// they had a normal towards it: surfaces have two sides, however their triangles are wound.
class LitScene {
public:
    LitScene(const osg::NodePtr& drawnScene, const FittedView& view)
        : scene(drawnScene), cameraNode(makeCameraNode(view)), root(makeLightNode(cameraNode.get(), 1.0f)),
          lit(makeLightNode(cameraNode.get(), -1.0f)) {
        addChild(root.get(), cameraNode.get());
        addChild(root.get(), lit.get());
        addChild(lit.get(), scene.get());
    }
    ~LitScene() {
        const osg::CPEditor editor(lit.get(), osg::Node::ChildrenFieldMask);
        osg::NodePtr child = scene.get();
        lit->subChild(child);
    }
    LitScene(const LitScene&) = delete;
    LitScene& operator=(const LitScene&) = delete;

    osg::NodePtr getRoot() const { return root.get(); }
    osg::NodePtr getCameraNode() const { return cameraNode.get(); }

private:
    Reference<osg::NodePtr> scene;
    Reference<osg::NodePtr> cameraNode;
    Reference<osg::NodePtr> root;
    Reference<osg::NodePtr> lit;
};

osg::ViewportPtr makeViewport(const osg::CameraPtr& camera, const osg::NodePtr& root,
                              const osg::BackgroundPtr& background) {
    const osg::ViewportPtr viewport = osg::Viewport::create();
    const osg::CPEditor editor(viewport);
    viewport->setCamera(camera);
    viewport->setRoot(root);
    viewport->setBackground(background);
    viewport->setSize(0.0f, 0.0f, 1.0f, 1.0f);
    return viewport;
}

} // namespace

std::vector<std::uint8_t> drawScene(OffscreenContext& context, const osg::NodePtr& scene, const FittedView& view,
                                    const osg::Color3f& color) {
    context.makeCurrent();
    const LitScene lit(scene, view);
    // Window, viewport, camera and background hold no references to each other.
    const Reference<osg::PerspectiveCameraPtr> camera(makeCamera(view, lit.getCameraNode()));
    const Reference<osg::SolidBackgroundPtr> background(makeBackground(color));
    const Reference<osg::ViewportPtr> viewport(makeViewport(camera.get(), lit.getRoot(), background.get()));
    const Reference<osg::PassiveWindowPtr> window(osg::PassiveWindow::create());
    {
        const osg::CPEditor editor(window.get());
        window->addPort(viewport.get());
    }
    window->init();
    window->resize(context.getWidth(), context.getHeight());
    const std::unique_ptr<osg::RenderAction> action(osg::RenderAction::create());
    window->render(action.get());
    std::vector<std::uint8_t> pixels = context.readPixels();
    {
        const osg::CPEditor editor(window.get());
        window->subPort(viewport.get());
    }
    return pixels;
}

} // namespace tesk::rendering
