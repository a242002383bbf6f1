#include <platform/cores/Camboard.h>
#include <platform/cores/Screenboard.h>
#include <platform/cores/Transform3D.h>
#include <platform/cores/UberCamera.h>

#include <OpenSG/OSGComponentTransform.h>
#include <OpenSG/OSGIntersectAction.h>
#include <OpenSG/OSGMatrixUtility.h>
#include <OpenSG/OSGPassiveWindow.h>
#include <OpenSG/OSGRenderAction.h>
#include <OpenSG/OSGViewport.h>

#include <support/Primitives.h>
#include <support/Random.h>
#include <support/Scenes.h>

#include <cmath>
#include <memory>

namespace tesk::test {

/// An action that looks at a scene from somewhere; nothing is drawn.
struct ViewOfScene {
    SceneNode beacon = transform(osg::Matrix(), {});
    osg::UberCameraRefPtr camera{osg::UberCamera::create()};
    osg::ViewportRefPtr viewport{osg::Viewport::create()};
    osg::RefPtr<osg::PassiveWindowPtr> window{osg::PassiveWindow::create()};
    std::unique_ptr<osg::RenderAction> action{osg::RenderAction::create()};

    explicit ViewOfScene(bool isOrthographic = false) {
        camera->setBeacon(beacon);
        camera->setOrthographic(isOrthographic);
        camera->setNear(0.1f);
        camera->setFar(1000.0f);
        window->setSize(800, 600);
        window->addPort(viewport);
        viewport->setSize(0.0f, 0.0f, 1.0f, 1.0f);
        action->setCamera(osg::UberCameraPtr(camera).getCPtr());
        action->setViewport(osg::ViewportPtr(viewport).getCPtr());
    }

    void lookFrom(const osg::Pnt3f& from, const osg::Pnt3f& at, const osg::Vec3f& up) {
        osg::MatrixLookAt(osg::TransformPtr::dcast(beacon->getCore())->getMatrix(), from, at, up);
    }
    /// Where a point of a frame is on the viewport, from -1 to 1.
    osg::Pnt3f project(const osg::Matrix& toWorld, osg::Pnt3f point) {
        osg::Matrix matrix;
        camera->getWorldToScreen(matrix, *osg::ViewportPtr(viewport));
        matrix.mult(toWorld);
        matrix.multFullMatrixPnt(point);
        return point;
    }
};

/// Turned, moved, sheared by uneven scales along other axes, every other time mirrored.
static osg::Matrix anyAncestors(Random& random) {
    const auto turn = [&] { return osg::Quaternion(random.vector(1.0f), random.real(0.0f, 6.0f)); };
    const float sign = random.chance(0.5f) ? -1.0f : 1.0f;
    const osg::Vec3f scale(sign * random.real(0.2f, 3.0f), random.real(0.2f, 3.0f), random.real(0.2f, 3.0f));
    osg::Matrix result;
    result.setTransform(random.vector(20.0f), turn(), scale, turn());
    return result;
}

static osg::CamboardRefPtr board(const osg::Pnt3f& position, float scale, float nearLimit, float farLimit) {
    const osg::CamboardRefPtr result(osg::Camboard::create());
    result->setPosition(position);
    result->setScale(scale);
    result->setNearLimit(nearLimit);
    result->setFarLimit(farLimit);
    return result;
}

TEST(Camboard, FacesTheCameraAndStaysWithinItsVolumeBelowAnyAncestors) {
    Random random(11);
    int mirrored = 0, limited = 0;
    for (int run = 0; run < 2000; ++run) {
        SCOPED_TRACE(run);
        const auto camboard = board(random.point(5.0f), random.real(0.1f, 1.0f), 0.0f, random.real(10.0f, 100.0f));
        const SceneNode node(osg::makeNodeFor(camboard)), root = transform(anyAncestors(random), {node});
        node->addChild(triangles({{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}}));
        osg::Pnt3f position;
        root->getToWorld().multMatrixPnt(camboard->getPosition(), position);
        ViewOfScene view(random.chance(0.5f));
        view.lookFrom(position + random.vector(30.0f) + osg::Vec3f(0, 0, 40), position + random.vector(3.0f),
                      random.vector(1.0f));
        osg::Matrix toWorld;
        ASSERT_TRUE(camboard->calcMatrix(view.action.get(), root->getToWorld(), toWorld));
        toWorld.multLeft(root->getToWorld());

        const osg::Pnt3f o = view.project(toWorld, {0, 0, 0});
        const osg::Vec3f x = view.project(toWorld, {1, 0, 0}) - o, y = view.project(toWorld, {0, 1, 0}) - o;
        // The height of the view, from how far a step upwards goes.
        const osg::Vec4f up = view.beacon->getToWorld()[1];
        const float height = 2.0f / (view.project({}, position + osg::Vec3f(up[0], up[1], up[2])) - o)[1];
        const float size = camboard->getScale() * std::min(height, camboard->getFarLimit());
        ASSERT_TRUE(x.equals(osg::Vec3f(2.0f * size / height * 0.75f, 0, 0), 1e-3f)) << x;
        ASSERT_TRUE(y.equals(osg::Vec3f(0, 2.0f * size / height, 0), 1e-3f)) << y;
        ASSERT_GT(toWorld.det3(), 0.0f);

        osg::DynamicVolume volume;
        node->getWorldVolume(volume);
        for (osg::Pnt3f corner : {osg::Pnt3f(0, 0, 0), osg::Pnt3f(1, 0, 0), osg::Pnt3f(0, 1, 0)}) {
            toWorld.multMatrixPnt(corner);
            ASSERT_TRUE(volume.intersect(corner)) << corner;
        }
        mirrored += root->getToWorld().det3() < 0.0f;
        limited += height > camboard->getFarLimit();
    }
    EXPECT_GT(std::min({mirrored, limited, 2000 - mirrored, 2000 - limited}), 300);
}

TEST(Camboard, SizeFollowsTheLimitsAndTheDepthOfItsPosition) {
    osg::Matrix flat;
    flat.setScale(1, 0, 1);
    // In perspective and orthographic; 0 where nothing is drawn. The view is as high as it is far away.
    const struct {
        osg::Pnt3f position;
        float scale, nearLimit, farLimit, perspective, orthographic;
        osg::Matrix ancestors;
    } rows[] = {{{0, 0, -7}, 0.5f, 1, 1, 0.5f, 0.5f, {}},     {{0, 0, 7}, 0.5f, 1, 1, 0.5f, 0.5f, {}},
                {{8, 0, -10}, 0.5f, 0, 1e9f, 5, 0.5f, {}},    {{0, 0, -2}, 0.5f, 3, 5, 1.5f, 1.5f, {}},
                {{0, 0, -10}, 0.5f, 1, 3, 1.5f, 0.5f, {}},    {{0, 0, 0}, 0.5f, 0, 1e9f, 0, 0.5f, {}},
                {{0, 0, 1}, 0.5f, 0, HUGE_VALF, 0, 0.5f, {}}, {{0, NAN, 0}, 0.5f, 1, 1, 0, 0, {}},
                {{0, 0, -1}, HUGE_VALF, 1, 1, 0, 0, {}},      {{0, 0, -1}, 1, 1, 1, 0, 0, flat},
                {{0, 0, -1}, 1, 1, 1, 0, 0, scaled(NAN)}};
    for (const auto& row : rows)
        for (const bool isOrthographic : {false, true}) {
            SCOPED_TRACE(&row - rows);
            ViewOfScene view(isOrthographic);
            view.camera->setFov(2.0f * std::atan(0.5f));
            const auto camboard = board(row.position, row.scale, row.nearLimit, row.farLimit);
            const float size = isOrthographic ? row.orthographic : row.perspective;
            osg::Matrix matrix(scaled(0));
            EXPECT_EQ(camboard->calcMatrix(view.action.get(), row.ancestors, matrix), size != 0.0f);
            EXPECT_NEAR(matrix[0][0], size, 1e-5f);
            // Whatever the place and the size, volumes stay usable.
            const SceneNode node(osg::makeNodeFor(camboard)), root = group({node});
            node->addChild(quad(1.0f));
            const osg::DynamicVolume& volume = root->getVolume(true);
            EXPECT_TRUE(volume.isEmpty() || std::isfinite(volume.getMax().dist(volume.getMin())));
        }
}

TEST(Screenboard, FindsBackWhatItPlaced) {
    Random random(23);
    for (int run = 0; run < 2000; ++run) {
        ViewOfScene view(run % 2 == 0);
        view.camera->setVerticalSize(4.0f);
        const auto length = [&] { return static_cast<osg::UInt16>(100 + random.below(2000)); };
        view.window->setSize(length(), length());
        if (random.chance(0.5f)) view.viewport->setSize(0.1f, 0.3f, 0.7f, 0.9f);
        view.lookFrom(random.point(30.0f), random.point(10.0f), random.vector(1.0f));
        const osg::ScreenboardRefPtr screenboard(osg::Screenboard::create());
        screenboard->setAnchor(osg::Vec2f(random.point(1.0f)));
        screenboard->setOrigin(osg::Vec2f(random.point(9.0f)));
        const osg::Matrix ancestors = anyAncestors(random);
        osg::Matrix toWorld;
        ASSERT_TRUE(screenboard->calcMatrix(view.action.get(), ancestors, toWorld)) << run;
        toWorld.multLeft(ancestors);

        const osg::Pnt3f local(random.real(0, 30), random.real(0, 21), random.real(-0.2f, 0.2f));
        const osg::Pnt3f seen = view.project(toWorld, local);
        ASSERT_LT(std::fabs(seen[2]), 1.0f) << run;
        const osg::ViewportPtr port = view.viewport;
        const float x = (seen[0] + 1.0f) * 0.5f * float(port->getPixelWidth()) + float(port->getPixelLeft());
        const float y = (seen[1] + 1.0f) * 0.5f * float(port->getPixelHeight()) + float(port->getPixelBottom());
        const osg::Pnt2f inWindow(x, float(view.window->getHeight()) - y);
        // Some hundreds of units may fit across the view.
        ASSERT_LT(screenboard->calcPosition(view.action.get(), inWindow).dist(osg::Pnt2f(local)), 0.05f) << run;
    }
}

TEST(Screenboard, FitsItsExtentAndFollowsTheWindow) {
    const struct {
        osg::UInt16 width, height;
        osg::Vec2f extent, anchor, origin;
        osg::Pnt2f pixel, local;
    } rows[] = {{600, 600, {30, 21}, {-1, -1}, {0, 0}, {600, 0}, {30, 30}},
                {1000, 420, {30, 21}, {-1, -1}, {0, 0}, {40, 400}, {2, 1}},
                {1000, 420, {30, 21}, {1, 1}, {30, 3.2f}, {880, 64}, {24, 0}},
                {1000, 420, {30, NAN}, {1, 1}, {30, 3.2f}, {880, 64}, {0, 0}},
                {0, 0, {30, 21}, {-1, -1}, {0, 0}, {5, 5}, {0, 0}}};
    ViewOfScene view;
    const osg::ScreenboardRefPtr screenboard(osg::Screenboard::create());
    for (const auto& row : rows) {
        view.window->setSize(row.width, row.height);
        screenboard->setExtent(row.extent);
        screenboard->setAnchor(row.anchor);
        screenboard->setOrigin(row.origin);
        EXPECT_LT(screenboard->calcPosition(view.action.get(), row.pixel).dist(row.local), 1e-4f) << row.local;
        osg::Matrix matrix;
        EXPECT_EQ(screenboard->calcMatrix(view.action.get(), {}, matrix), !row.local.equals({0, 0}, 0.0f));
        EXPECT_FALSE(screenboard->calcMatrix(view.action.get(), scaled(0), matrix));
    }
}

static SceneNode quadBelow(const osg::NodeCorePtr& core) {
    const SceneNode result(osg::makeNodeFor(core));
    result->addChild(quad(0.5f));
    return result;
}

TEST(Transform3D, PlacesAndPicksAsComponentTransformAmongBoardsThatArePassedBy) {
    Random random(5);
    int hits = 0;
    for (int run = 0; run < 1000; ++run) {
        const osg::Vec3f translation = random.vector(2.0f), scale = random.vector(3.0f);
        const osg::Quaternion rotation(random.vector(1.0f), random.real(0.0f, 6.0f));
        const auto edited = [&](const auto& core) {
            const osg::CPEditor edit(core);
            core->setTranslation(translation);
            core->setRotation(rotation);
            core->setScale(scale);
            return core;
        };
        const SceneNode expected = quadBelow(edited(osg::ComponentTransform::create())),
                        node = quadBelow(edited(osg::Transform3D::create())),
                        root = group({quadBelow(osg::Camboard::create()), node, quadBelow(osg::Screenboard::create())});
        const osg::Matrix toWorld = expected->getChild(0)->getToWorld();
        ASSERT_TRUE(node->getChild(0)->getToWorld().equals(toWorld, 1e-5f));
        osg::Pnt3f aim(random.real(-0.5f, 1.5f), random.real(-0.5f, 1.5f), 0.5f);
        toWorld.multMatrixPnt(aim);
        const osg::Line ray(random.point(5.0f), aim);
        const std::unique_ptr<osg::IntersectAction> found(osg::IntersectAction::create(ray)),
            wanted(osg::IntersectAction::create(ray));
        found->apply(root);
        wanted->apply(expected);
        ASSERT_EQ(found->didHit(), wanted->didHit()) << run;
        ASSERT_NEAR(found->getHitT(), wanted->getHitT(), 1e-3f) << run;
        hits += found->didHit();
    }
    EXPECT_TRUE(hits > 150 && hits < 850) << hits;
}

} // namespace tesk::test
