// Shows the distance between two spheres in a picture: show-example FILE.ppm
#include "OffscreenContext.h"

#include <measurement/model/MeasurementManager.h>
#include <measurement/model/ObjectObjectMeasurement.h>
#include <measurement/visualisation/SimpleMeasurementVisualisation.h>

#include <platform/tkOSGWidget.h>
#include <platform/tkScenegraph.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGDirectionalLight.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGPassiveWindow.h>
#include <OpenSG/OSGPerspectiveCamera.h>
#include <OpenSG/OSGRenderAction.h>
#include <OpenSG/OSGSimpleGeometry.h>
#include <OpenSG/OSGSolidBackground.h>
#include <OpenSG/OSGTransform.h>
#include <OpenSG/OSGViewport.h>

#include <iostream>
#include <memory>

using namespace tesk::measurement;

namespace {

constexpr int pictureWidth = 640;
constexpr int pictureHeight = 400;

void addChild(const osg::NodePtr& parent, const osg::NodePtr& child) {
    const osg::CPEditor editor(parent, osg::Node::ChildrenFieldMask);
    parent->addChild(child);
}

osg::NodePtr makePlace(float x, float y, float z) {
    osg::Matrix matrix;
    matrix.setTranslate(x, y, z);
    const osg::TransformPtr transform = osg::Transform::create();
    const osg::CPEditor editor(transform, osg::Transform::MatrixFieldMask);
    transform->setMatrix(matrix);
    return osg::makeNodeFor(transform);
}

osg::NodePtr addSphere(float radius, float x, float y) {
    const osg::NodePtr sphere = osg::makeSphere(4, radius);
    const osg::NodePtr place = makePlace(x, y, 0);
    addChild(place, sphere);
    addChild(tkScenegraph::getRoot(), place);
    return sphere;
}

/// Both roots below a light that shines from the camera.
osg::NodePtr makeWorld(const osg::NodePtr& cameraPlace) {
    const osg::DirectionalLightPtr light = osg::DirectionalLight::create();
    const osg::CPEditor editor(light);
    light->setBeacon(cameraPlace);
    light->setDirection(0, 0, 1);
    light->setDiffuse(0.8f, 0.8f, 0.8f, 1);
    const osg::NodePtr world = osg::makeNodeFor(light);
    for (const osg::NodePtr& part : {cameraPlace, tkScenegraph::getRoot(), tkScenegraph::getInternalRoot()})
        addChild(world, part);
    return world;
}

osg::CameraPtr makeCamera(const osg::NodePtr& cameraPlace) {
    const osg::PerspectiveCameraPtr camera = osg::PerspectiveCamera::create();
    const osg::CPEditor editor(camera);
    camera->setBeacon(cameraPlace);
    camera->setFov(0.6f);
    camera->setNear(0.1f);
    camera->setFar(100);
    return camera;
}

osg::BackgroundPtr makeBackground() {
    const osg::SolidBackgroundPtr background = osg::SolidBackground::create();
    const osg::CPEditor editor(background);
    background->setColor(osg::Color3f(0.15f, 0.2f, 0.3f));
    return background;
}

/// A window on a context that is somebody else's, with one viewport that fills it.
osg::WindowPtr makeWindow(const osg::NodePtr& world, const osg::NodePtr& cameraPlace) {
    const osg::ViewportPtr viewport = osg::Viewport::create();
    {
        const osg::CPEditor editor(viewport);
        viewport->setRoot(world);
        viewport->setCamera(makeCamera(cameraPlace));
        viewport->setBackground(makeBackground());
        viewport->setSize(0, 0, 1, 1);
    }
    const osg::PassiveWindowPtr window = osg::PassiveWindow::create();
    {
        const osg::CPEditor editor(window, osg::Window::PortFieldMask);
        window->addPort(viewport);
    }
    window->init();
    window->resize(pictureWidth, pictureHeight);
    tkOSGWidget::setViewport(viewport);
    return window;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: show-example FILE.ppm\n";
        return 2;
    }
    if (!makeOffscreenContext(pictureWidth, pictureHeight)) {
        std::cerr << "show-example: no OpenGL to be had\n";
        return 1;
    }
    osg::osgInit(argc, argv);
    const osg::NodePtr ball = addSphere(0.7f, -1.5f, -0.5f);
    const osg::NodePtr bearing = addSphere(0.9f, 1.4f, 0.5f);

    //! [show]
    MeasurementManager* const manager = MeasurementManager::getInstance();
    manager->setVisualisationRoot(tkScenegraph::getInternalRoot());
    SimpleMeasurementVisualisation distances;
    distances.setPrecision(2);
    distances.setTextScale(0.3f);
    manager->addVisualisation(&distances);
    manager->createObjectObjectMeasurement(ball, bearing);
    //! [show]

    const osg::NodePtr cameraPlace = makePlace(0, 0, 8);
    const osg::WindowPtr window = makeWindow(makeWorld(cameraPlace), cameraPlace);
    const std::unique_ptr<osg::RenderAction> action(osg::RenderAction::create());
    window->render(action.get());
    const bool isWritten = writePicture(argv[1], pictureWidth, pictureHeight);
    tkOSGWidget::setViewport(osg::NullFC);
    manager->removeVisualisation(&distances);
    return isWritten ? 0 : 1;
}
