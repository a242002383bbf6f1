#include <measurement/visualisation/detail/ChartLayout.h>

#include <gtest/gtest.h>

#include <cmath>

namespace tesk::measurement::detail {

static ChartFrame frameWithMouse(float x, float y) {
    ChartFrame frame;
    frame.mousePosition = osg::Pnt2f(x, y);
    frame.zoomedLeft = 2;
    frame.zoomedRight = 20;
    return frame;
}

TEST(ChartFrame, SpreadsAroundAMouseInside) {
    const struct {
        float mouseX, mouseY, x, zoomedX;
    } rows[] = {{5, 1, 5, 5},     {4, 1, 5, 6.5707963f}, {5, 1, 4, 2.4292037f}, {2, 0, 20, 23.030596f}, {20, 2, 20, 20},
                {1.99f, 1, 5, 5}, {20.01f, 1, 5, 5},     {4, -0.01f, 5, 5},     {4, 2.01f, 5, 5},       {NAN, 1, 5, 5}};
    for (const auto& [mouseX, mouseY, x, zoomedX] : rows)
        EXPECT_FLOAT_EQ(frameWithMouse(mouseX, mouseY).getZoomedX(x), zoomedX) << mouseX << " " << mouseY << " " << x;
    // Left of the chart: in the former frame, but no longer right of the new left end.
    ChartFrame frame = frameWithMouse(1.5f, 1);
    frame.zoomedLeft = 1.1f;
    frame.zoomedRight = 23;
    frame.zoom();
    EXPECT_FLOAT_EQ(frame.zoomedLeft, 2.9272952f);
    EXPECT_EQ(frame.zoomedRight, 20.0f);
}

TEST(ChartScale, StartsAtZeroAndLeavesOutWhatIsNotInTheFrame) {
    const float nothing = -1.0f, largest = 3.4028235e38f;
    const struct {
        float maximum, distance, height;
    } rows[] = {{4, 0, 0.2f},
                {4, 4, 1.8f},
                {4, 1, 0.6f},
                {4, 5, nothing},
                {4, NAN, nothing},
                {0, 0, 0.2f},
                {0, 1, nothing},
                {0, largest, nothing},
                {-1, 1, nothing},
                {-largest, largest, nothing},
                {NAN, 1, nothing},
                {HUGE_VALF, 1, 0.2f},
                {HUGE_VALF, HUGE_VALF, nothing}};
    const ChartFrame frame;
    for (const auto& [maximum, distance, height] : rows)
        EXPECT_FLOAT_EQ(ChartScale(frame, maximum).getHeight(distance).value_or(nothing), height)
            << distance << " of " << maximum;
}

} // namespace tesk::measurement::detail
