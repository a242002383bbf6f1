#include <measurement/model/MeasurementManager.h>
#include <measurement/section/GapMeasurement.h>

#include <support/Scenes.h>

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace tesk::measurement {

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
