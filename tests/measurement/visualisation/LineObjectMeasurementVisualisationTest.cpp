#include <measurement/visualisation/LineObjectMeasurementVisualisation.h>

#include "SampledMeasurements.h"

#include <measurement/model/PointPointMeasurement.h>
#include <measurement/visualisation/LineObjectMeasurementColorGenerator.h>

#include <support/SceneText.h>

#include <gtest/gtest.h>

#include <cmath>

namespace tesk::measurement {

TEST(LineObjectMeasurementColorGenerator, ComparesWithTheReference) {
    const osg::Color3f blue(0.25f, 0.75f, 1), middle(0.525f, 0.775f, 0.5f), yellow(0.8f, 0.8f, 0);
    const struct {
        float reference, value;
        osg::Color3f color;
    } rows[] = {{10, 10, middle}, {10, 11, yellow}, {10, 9, blue},   {14, 14.5f, {0.6625f, 0.7875f, 0.25f}},
                {0, 1, yellow},   {0, 0, blue},     {10, NAN, blue}, {HUGE_VALF, 1, blue}};
    for (const auto& [reference, value, color] : rows)
        EXPECT_TRUE(LineObjectMeasurementColorGenerator::getColor(reference, value) == color)
            << value << " by " << reference;
}

TEST(LineObjectMeasurementVisualisation, RefillsOneGeometryWithItsSamples) {
    test::SlantedGap gap;
    LineObjectMeasurementVisualisation visualisation;
    const PointPointMeasurement other(nullptr);
    visualisation.addMeasurement(&gap.measurement);
    visualisation.addMeasurement(&other);
    ASSERT_EQ(visualisation.getVisualisation()->getNChildren(), 1u);
    const osg::NodePtr node = visualisation.getVisualisation()->getChild(0);
    gap.measure(2);
    visualisation.updateMeasurement(&gap.measurement);
    visualisation.setLineWidth(5);
    EXPECT_EQ(test::sceneText(node), "Group\n  Geometry: Lines 0 1 2 3; P1; 2 x (0.25 0.75 1), 2 x (0.8 0.8 0); M1\n"
                                     "P1: (1 0 0) (-0.319997 0 1.76) (2 0.000222222 0) (0.319999 0.000222206 2.24)\n"
                                     "M1: SimpleMaterial (1 0.8 0.2), unlit; key 64010; lines 5; blending\n");
    gap.measure(1);
    visualisation.updateMeasurement(&gap.measurement);
    visualisation.setLineWidth(2);
    EXPECT_EQ(test::sceneText(node), "Group\n  Geometry: Lines; P1; M1\nP1:\n"
                                     "M1: SimpleMaterial (1 0.8 0.2), unlit; key 64010; lines 2; blending\n");
}

} // namespace tesk::measurement
