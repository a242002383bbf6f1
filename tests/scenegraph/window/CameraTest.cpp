#include <OpenSG/OSGLine.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGOrthographicCamera.h>
#include <OpenSG/OSGPassiveWindow.h>
#include <OpenSG/OSGPerspectiveCamera.h>
#include <OpenSG/OSGTransform.h>

#include <gtest/gtest.h>

namespace {

using osg::Pnt3f;

TEST(Camera, ProjectsByAngleOrSizeAndSeesTheRayOfAPixelAsAPoint) {
    osg::osgInit(0, nullptr);
    const osg::WindowRefPtr window(osg::PassiveWindow::create());
    const osg::ViewportRefPtr viewport(osg::Viewport::create());
    viewport->setSize(0, 0, 1, 1);
    const osg::PerspectiveCameraRefPtr perspective(osg::PerspectiveCamera::create());
    const osg::OrthographicCameraRefPtr orthographic(osg::OrthographicCamera::create());
    const osg::NodeRefPtr beacon(osg::makeCoredNode<osg::Transform>());
    osg::TransformPtr::dcast(beacon->getCore())->getMatrix().setTranslate(0, 0, 10);
    for (osg::CameraPtr camera : {osg::CameraPtr(perspective), osg::CameraPtr(orthographic)}) {
        camera->setBeacon(beacon);
        camera->setNear(1);
        camera->setFar(100);
    }
    window->addPort(viewport);
    window->setSize(800, 600);
    const auto onScreen = [&](const osg::CameraPtr& camera, const Pnt3f& point) {
        osg::Matrix toScreen;
        camera->getWorldToScreen(toScreen, *viewport.getCPtr());
        Pnt3f result;
        toScreen.multFullMatrixPnt(point, result);
        return result;
    };
    for (const float fov : {60.0f, osg::osgdegree2rad(60.0f)}) {
        perspective->setFov(fov);
        const Pnt3f seen = onScreen(perspective, Pnt3f(10, -5, 0));
        EXPECT_TRUE(seen.equals(Pnt3f(1.299038f, -0.866025f, 0.818182f), 1e-5f)) << seen;
    }
    orthographic->setVerticalSize(6);
    EXPECT_TRUE(onScreen(orthographic, Pnt3f(4, 3, 9)).equals(Pnt3f(1, 1, -1), 1e-6f));

    viewport->setSize(0.25f, 100, 1, 0.5f);
    osg::Line ray;
    for (const osg::CameraPtr camera : {osg::CameraPtr(perspective), osg::CameraPtr(orthographic)})
        for (const auto& [x, y] : {std::pair(200, 301), {333, 444}, {799, 500}}) {
            ASSERT_TRUE(camera->calcViewRay(ray, x, y, *viewport.getCPtr()));
            const Pnt3f nearest = onScreen(camera, ray.getPosition());
            const Pnt3f further = onScreen(camera, ray.getPosition() + ray.getDirection() * 20.0f);
            const float screenX = float(x - 200) / 600.0f * 2.0f - 1.0f;
            const float screenY = 1.0f - float(y - 301) / 200.0f * 2.0f;
            EXPECT_TRUE(nearest.equals(Pnt3f(screenX, screenY, -1), 1e-4f)) << x << ' ' << y << ": " << nearest;
            EXPECT_TRUE(further.equals(Pnt3f(screenX, screenY, further[2]), 1e-4f)) << further;
            EXPECT_GT(further[2], -1.0f);
        }
    window->setSize(0, 0);
    viewport->setSize(0, 0, 1, 1);
    EXPECT_FALSE(perspective->calcViewRay(ray, 0, 0, *viewport.getCPtr()));
    window->subPort(viewport);
    EXPECT_FALSE(perspective->calcViewRay(ray, 0, 0, *viewport.getCPtr()));
}

} // namespace
