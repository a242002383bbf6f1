#include <measurement/visualisation/LineObjectLegendVisualisation.h>

#include <measurement/section/GapMeasurement.h>
#include <measurement/section/LineObjectMeasurement.h>

#include <support/SceneText.h>

#include <gtest/gtest.h>

namespace tesk::measurement {

TEST(LineObjectLegendVisualisation, ShowsTheActiveLineObjectMeasurementInABox) {
    if (!test::hasFont()) GTEST_SKIP() << "no font";
    LineObjectLegendVisualisation legend;
    const GapMeasurement gap(nullptr);
    legend.setActiveMeasurement(&gap);
    EXPECT_TRUE(legend.getActiveVisualisation() == osg::NullFC);
    const LineObjectMeasurement measurement(nullptr);
    legend.setActiveMeasurement(&measurement);
    legend.setBorderColor({0, 0, 1});
    legend.setTextColor({1, 0, 0});
    legend.setPrecision(3);
    const osg::NodePtr board = legend.getActiveVisualisation();
    EXPECT_EQ(test::sceneText(board),
              "Screenboard: (32.5 21) anchor (1 1) origin (31.75 3.7)\n"
              "  Group\n"
              "    Geometry: Quads 0 1 2 3; P1; M1\n"
              // Three lines of thirteen characters.
              "    Geometry: Quads 156; textured; 156 x (1 0 0); M2\n"
              "    Geometry: LineLoop 0 1 2 3; P2; 4 x (0 0 1); M3\n"
              "P1: (24 0 -0.1) (30 0 -0.1) (30 3.2 -0.1) (24 3.2 -0.1)\n"
              "P2: (24 0 -0.1) (30 0 -0.1) (30 3.2 -0.1) (24 3.2 -0.1)\n"
              "M1: SimpleMaterial (0 0 0), unlit, transparency 0.5; key 64100; blending; over the scene\n"
              "M2: ChunkMaterial; key 64105; color (1 1 1 1), unlit; TextureChunk; blending; over the scene\n"
              "M3: SimpleMaterial (0 0 1), unlit; key 64102; lines 2 smooth; blending; over the scene\n");
}

} // namespace tesk::measurement
