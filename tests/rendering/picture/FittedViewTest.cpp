#include <rendering/picture/FittedView.h>

#include <support/Random.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace tesk::rendering {

namespace {

struct Seen {
    float left = HUGE_VALF, right = -HUGE_VALF, bottom = HUGE_VALF, top = -HUGE_VALF;
};

Seen seenPart(const std::vector<osg::Pnt3f>& points, const FittedView& view, float aspect) {
    Seen seen;
    for (const osg::Pnt3f& point : points) {
        const osg::Pnt2f place = view.project(point, aspect);
        seen.left = std::min(seen.left, place[0]);
        seen.right = std::max(seen.right, place[0]);
        seen.bottom = std::min(seen.bottom, place[1]);
        seen.top = std::max(seen.top, place[1]);
    }
    return seen;
}

} // namespace

TEST(FittedView, SeesEverythingAndIsAsNearAsItCanBe) {
    test::Random random(5);
    for (int run = 0; run < 300; ++run) {
        SCOPED_TRACE(run);
        const float extent = std::pow(10.0f, random.real(-6.0f, 12.0f));
        std::vector<osg::Pnt3f> points;
        for (int i = 0; i < 9; ++i) points.push_back(random.point(extent));
        const Margins margins{random.real(0, 0.3f), random.real(0, 0.3f), random.real(0, 0.3f), random.real(0, 0.3f)};
        const float aspect = random.real(0.3f, 3.0f);
        const osg::Vec3f viewFrom = run % 3 == 0 ? osg::Vec3f(0, 0, random.real(-1, 1)) : random.vector(1e18f);
        const FittedView view = fitView(points, boxOf(points), viewFrom, aspect, margins);

        const Seen seen = seenPart(points, view, aspect);
        constexpr float rounding = 1e-3f;
        const float room[] = {seen.left - margins.left, 1 - margins.right - seen.right, seen.bottom - margins.bottom,
                              1 - margins.top - seen.top};
        EXPECT_GE(*std::min_element(room, room + 4), -rounding);
        // Edge to edge in one direction: from any nearer something would be outside.
        EXPECT_LE(std::min(std::max(room[0], room[1]), std::max(room[2], room[3])), rounding);
        for (const osg::Pnt3f& corner : boxOf(points).getCorners()) {
            const osg::Vec3f way = corner - view.getEye();
            const auto& back = view.cameraToWorld[2];
            const float depth = -(back[0] * way[0] + back[1] * way[1] + back[2] * way[2]);
            EXPECT_LT(view.nearPlane, std::max(depth, 2.0f * view.nearPlane));
            EXPECT_GT(view.farPlane, depth);
        }
        EXPECT_GT(view.nearPlane, 0.0f);
    }
}

TEST(FittedView, HasXToTheRightAndZOrYUp) {
    const struct {
        osg::Vec3f viewFrom, right, up;
    } rows[] = {{{0, -1, 0}, {1, 0, 0}, {0, 0, 1}}, {{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}},
                {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}},  {{-1, 0, 0}, {0, -1, 0}, {0, 0, 1}},
                {{0, 0, 1}, {1, 0, 0}, {0, 1, 0}},  {{0, 0, -1}, {1, 0, 0}, {0, -1, 0}}};
    const Box box{{-1, -1, -1}, {1, 1, 1}};
    for (const auto& [viewFrom, right, up] : rows) {
        SCOPED_TRACE(testing::Message() << viewFrom[0] << " " << viewFrom[1] << " " << viewFrom[2]);
        const FittedView view = fitView(box.getCorners(), box, viewFrom, 1.0f, {});
        const osg::Pnt3f middle(0, 0, 0);
        EXPECT_NEAR(view.project(middle, 1)[0], 0.5f, 1e-5f);
        EXPECT_GT(view.project(middle + right, 1)[0], 0.7f);
        EXPECT_GT(view.project(middle + up, 1)[1], 0.7f);
    }
}

TEST(FittedView, ShowsWhatHasNoExtentInTheMiddle) {
    const std::vector<osg::Pnt3f> rows[] = {{},
                                            {{0, 0, 0}},
                                            {{1e-30f, 0, 0}, {0, 0, 0}},
                                            {{3, 4, 5}},
                                            {{1e15f, 1, 1}, {1e15f, 2, 2}},
                                            {{0, 0, 0}, {0, -7, 0}}};
    for (const auto& points : rows) {
        SCOPED_TRACE(points.size());
        const FittedView view = fitView(points, boxOf(points), osg::Vec3f(0, -1, 0), 1.5f, {});
        const osg::Pnt2f place = view.project(points.empty() ? osg::Pnt3f(0, 0, 0) : points.front(), 1.5f);
        EXPECT_NEAR(place[0], 0.5f, 0.01f);
        EXPECT_NEAR(place[1], 0.5f, 0.01f);
        EXPECT_GT(view.farPlane, view.nearPlane);
    }
}

} // namespace tesk::rendering
