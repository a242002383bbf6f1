#include <measurement/model/CircleMeasurement.h>

#include <support/Primitives.h>
#include <support/Random.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tesk::test {

using measurement::CircleMeasurement;

static void setPoints(CircleMeasurement& circle, const osg::Pnt3f& p1, const osg::Pnt3f& p2, const osg::Pnt3f& p3) {
    circle.setPoint3(osg::NullFC, p3);
    circle.setPoint1(osg::NullFC, p1);
    circle.setPoint2(osg::NullFC, p2);
}

TEST(CircleMeasurement, IsComputedStepByStepInSinglePrecision) {
    const float inf = std::numeric_limits<float>::infinity();
    // The bits were computed apart from the library.
    const struct {
        const char* place;
        osg::Pnt3f point1, point2, point3, center, normal;
    } rows[] = {
        {"by xy", {0, 0, 0}, {2, 0, 0}, {0, 2, 0}, {1, 1, 0}, {0, 0, 4}},
        {"by yz", {16, 12, 2}, {-7, 6, 23}, {6, -1, 15}, {0x1.1ab46cp1f, 0x1.f4ef2cp3f, 0x1.7c8806p3f}, {195, 89, 239}},
        {"by zx", {0, 0, 0}, {24, 3, 7}, {1, 9, 21}, {0x1.36c2b4p3f, 0x1.15d5f8p2f, 0x1.44244ep3f}, {0, -497, 213}},
        {"infinite", {0, 0, 0}, {0, .3f, .7f}, {.3f, 0, 0}, {inf, NAN, NAN}, {0, 0x1.ae147cp-3f, -0x1.70a3d8p-4f}},
        {"collinear", {0, 0, 0}, {1, 0, 0}, {3, 0, 0}, {0.5f, 0, 0}, {0, 0, 0}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.place);
        CircleMeasurement circle(nullptr);
        circle.setCenter({9, 9, 9});
        setPoints(circle, row.point1, row.point2, row.point3);
        EXPECT_TRUE(identical(circle.getCenter(), row.center));
        EXPECT_TRUE(identical(osg::Pnt3f(circle.getNormal()), row.normal));
        EXPECT_EQ(circle.getVector(), row.point1 - row.point2);
    }
}

TEST(CircleMeasurement, HasItsCentreInThePlaneAtOneDistanceFromAllPoints) {
    Random random(3);
    CircleMeasurement circle(nullptr);
    int measured = 0;
    for (int run = 0; run < 5000; ++run) {
        const measurement::Triangle rim = random.triangle(10.0f);
        setPoints(circle, rim.p0, rim.p1, rim.p2);
        const osg::Vec3f normal = circle.getNormal();
        // Slender triangles, and planes along the x axis, leave the quotient few digits.
        if (normal.length() < 40.0f || std::abs(normal[0]) < 0.1f * normal.length()) continue;
        ++measured;
        const float radius = circle.getValue();
        for (const osg::Pnt3f& point : {rim.p1, rim.p2})
            ASSERT_NEAR((circle.getCenter() - point).length(), radius, 1e-3f * radius) << "run " << run << ": " << rim;
        ASSERT_NEAR((circle.getCenter() - rim.p0).dot(normal), 0.0f, 1e-3f * radius * normal.length()) << rim;
    }
    EXPECT_GT(measured, 2500);
}

} // namespace tesk::test
