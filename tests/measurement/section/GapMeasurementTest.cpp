#include <measurement/geometry/DistanceTriangleTriangle.h>
#include <measurement/model/MeasurementManager.h>
#include <measurement/section/GapMeasurement.h>

#include <support/BruteForce.h>
#include <support/Random.h>
#include <support/Scenes.h>

#include <OpenSG/OSGQuaternion.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace tesk::measurement {

TEST(GapMeasurement, AgreesWithAllPairsInAnyFrame) {
    test::Random random(21);
    GapMeasurement gap(nullptr);
    for (int run = 0; run < 200; ++run) {
        SCOPED_TRACE(run);
        std::vector<Triangle> object1(6), object2(6);
        for (std::size_t i = 0; i < 6; ++i) {
            Triangle &t1 = object1[i] = random.triangle(3), &t2 = object2[i] = random.triangle(2);
            // No corner of object 1 is on a plane, and object 2 is apart.
            for (osg::Pnt3f* corner : {&t1.p0, &t1.p1, &t1.p2}) (*corner)[0] = std::round((*corner)[0]);
            for (osg::Pnt3f* corner : {&t2.p0, &t2.p1, &t2.p2}) (*corner)[1] += 6;
        }
        osg::Matrix frame;
        frame.setTransform(random.vector(9), osg::Quaternion(random.vector(1), 2));
        osg::Pnt3f from(-4.5f, 0, 0), to(3.7f, 0, 0);
        for (osg::Pnt3f* end : {&from, &to}) frame.multMatrixPnt(*end);
        const test::SceneNode node1 = test::triangles(object1), node2 = test::group({test::triangles(object2)});
        const test::SceneNode scene = test::transform(frame, {node1, node2});
        gap.setNode1(node1, from);
        gap.setNode2(node2, to);
        gap.update();
        auto pair = gap.getPointPairs().begin();
        for (float x = -4.5f; x < 3.7f; ++x) {
            float least = HUGE_VALF;
            for (const auto& [start, end] : test::cut(object1, {1, 0, 0, -x}))
                for (const Triangle& triangle : object2)
                    least = std::min(least, DistanceTriangleTriangle({start, end, end}, triangle).getSquaredDistance());
            if (least == HUGE_VALF) continue;
            ASSERT_NE(pair, gap.getPointPairs().end());
            EXPECT_NEAR(pair->first.dist(pair->second), std::sqrt(least), 1e-3f);
            ++pair;
        }
        EXPECT_EQ(pair, gap.getPointPairs().end());
    }
}

TEST(GapMeasurement, SamplesInStepsThatAlwaysEnd) {
    const test::SceneNode level = test::named(test::triangles({{{0, 0, 0}, {10, 0, 0}, {10, 1, 0}}}), "level");
    // Its distance from (x, 0, 0) is 1.6 + 0.6 x.
    const Triangle slope{{-40, -9, -28}, {40, -9, 32}, {40, 99, 32}};
    const test::SceneNode slanted = test::named(test::triangles({slope}), "slanted");
    MeasurementManager manager;
    GapMeasurement* const gap = manager.createGapMeasurement(level, slanted);
    gap->update();
    EXPECT_TRUE(gap->getPointPairs().empty() && gap->getName() == "level  to  slanted");

    using Places = std::vector<float>;
    const auto places = [&](float from, float to, float step) {
        gap->setNode1(level, {from, 0, 0});
        gap->setNode2(slanted, {to, 0, 0});
        gap->setSampleDistance(step);
        gap->update();
        Places result;
        for (const auto& pair : gap->getPointPairs()) result.push_back(pair.first[0]);
        return result;
    };
    const float nan = std::nanf(""), infinity = HUGE_VALF;
    EXPECT_EQ(places(-3.5f, 1, 2), Places({0.5f}));
    for (const float step : {5.0f, 0.0f, -1.0f, nan, infinity}) EXPECT_EQ(places(1, 2, step), Places({1})) << step;
    EXPECT_EQ(places(3.5f, 0.5f, 1), Places({3.5f, 2.5f, 1.5f, 0.5f}));
    EXPECT_NEAR(gap->getValue(), 2.8f, 1e-5f);
    EXPECT_NEAR(gap->getDeviation(), 0.6f, 1e-5f);
    EXPECT_NEAR(gap->getMinimumDistance(), 1.9f, 1e-5f);
    EXPECT_NEAR(gap->getMaximumDistance(), 3.7f, 1e-5f);
    for (const float to : {1.0f, nan, infinity, 1e30f}) EXPECT_EQ(places(1, to, 1), Places()) << to;
    EXPECT_EQ(gap->getValue() + gap->getDeviation() + gap->getMaximumDistance(), 0.0f);
    EXPECT_EQ(gap->getMinimumDistance(), 3.4028235e38f);
}

} // namespace tesk::measurement
