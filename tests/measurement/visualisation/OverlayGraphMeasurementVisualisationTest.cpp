#include <measurement/visualisation/OverlayGraphMeasurementVisualisation.h>

#include "SampledMeasurements.h"

#include <measurement/model/PointPointMeasurement.h>

#include <support/SceneText.h>

#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGPassiveWindow.h>
#include <OpenSG/OSGRenderAction.h>
#include <OpenSG/OSGViewport.h>

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

namespace tesk::measurement {

enum Part : osg::UInt32 { plates, lines, frame, marker, samples, text };

/// A chart in a window of 20 pixels a unit.
class OverlayGraphTest : public testing::Test {
protected:
    OverlayGraphTest() {
        window->resize(650, 420);
        window->addPort(viewport.get());
        viewport->setSize(0, 0, 1, 1);
        action->setViewport(&*viewport.get());
    }

    void show(osg::UInt32 sampleCount) {
        gap.measure(sampleCount);
        graph.setActiveMeasurement(&gap.measurement);
        graph.updateVisualisation();
    }
    void moveMouseTo(float x, float y) { graph.mouseMoved(action.get(), {20 * (x + 1.5f), 420 - 20 * (y + 0.5f)}); }
    osg::GeoPositionsPtr positionsOf(Part part) const {
        const osg::NodePtr node = graph.getActiveVisualisation()->getChild(0)->getChild(part);
        return osg::GeometryPtr::dcast(node->getCore())->getPositions();
    }
    std::string roundedPointsOf(Part part) const {
        std::ostringstream result;
        for (osg::UInt32 i = 0; i < 2 * positionsOf(part)->size(); ++i)
            result << std::round(positionsOf(part)->getValue(i / 2)[i % 2] * 100) / 100 << (i % 2 ? "  " : " ");
        return result.str();
    }

    test::SlantedGap gap;
    OverlayGraphMeasurementVisualisation graph;
    osg::RefPtr<osg::PassiveWindowPtr> window{osg::PassiveWindow::create()};
    osg::RefPtr<osg::ViewportPtr> viewport{osg::Viewport::create()};
    std::unique_ptr<osg::RenderAction> action{osg::RenderAction::create()};
};

TEST_F(OverlayGraphTest, ShowsTheActiveMeasurementWithItsSettings) {
    if (!test::hasFont()) GTEST_SKIP() << "no font";
    show(4);
    EXPECT_EQ(roundedPointsOf(frame), "2 0  20 0  20 2  2 2  ");
    EXPECT_EQ(roundedPointsOf(lines), "2 1.8  20 1.8  2 1.44  20 1.44  2 1.08  20 1.08  ");
    EXPECT_EQ(roundedPointsOf(samples), "5.6 1.08  9.2 1.32  12.8 1.56  16.4 1.8  ");
    graph.setBackColor({0.5f, 0.5f, 0.5f});
    graph.setLineColor({0, 0, 1});
    graph.setLineWidth(7);
    graph.setBorderColor({0, 1, 0});
    graph.setTextColor({1, 0, 0});
    std::string shown = test::sceneText(graph.getActiveVisualisation());
    EXPECT_EQ(shown.erase(shown.find("P1:"), shown.find("M1: ") - shown.find("P1:")),
              "Screenboard: (32.5 21) anchor (-1 -1) origin (-1.5 -0.5)\n"
              "  Group\n"
              "    Geometry: Quads 0 1 2 3 4 5 6 7 8 9 10 11; P1; "
              "4 x (0.4 0.4 0.4), 4 x (0.6 0.6 0.6), 4 x (0.4 0.4 0.4); M1\n"
              "    Geometry: Lines 0 1 2 3 4 5; P2; M2\n"
              "    Geometry: LineLoop 0 1 2 3; P3; 4 x (0 1 0); M3\n"
              "    Geometry: Points; P4; M4\n"
              "    Geometry: Points 0 1 2 3; P5; 2 x (0.25 0.75 1), 2 x (0.8 0.8 0); M5\n"
              "    Geometry: Quads 56, Quads 56, Quads 56; textured; 168 x (1 0 0); M6\n"
              "M1: ChunkMaterial; key 64100; color (1 1 1 1), unlit; blending; over the scene\n"
              "M2: ChunkMaterial; key 64101; color (0 0 1 1), unlit; lines 7 smooth; blending; over the scene\n"
              "M3: ChunkMaterial; key 64102; color (1 1 1 1), unlit; lines 7 smooth; blending; over the scene\n"
              "M4: ChunkMaterial; key 64103; color (1 0.72 0 0.7), unlit; PointChunk; blending; over the scene\n"
              "M5: ChunkMaterial; key 64104; color (1 1 1 1), unlit; PointChunk; blending; over the scene\n"
              "M6: ChunkMaterial; key 64105; color (1 1 1 1), unlit; TextureChunk; blending; over the scene\n");
}

TEST_F(OverlayGraphTest, SpreadsAndReadsOutAtTheMouse) {
    if (!test::hasFont()) GTEST_SKIP() << "no font";
    show(4);
    const osg::UInt32 labelGlyphs = positionsOf(text)->size();
    moveMouseTo(9, 1);
    EXPECT_EQ(roundedPointsOf(frame), "-0.86 0  22.96 0  22.96 2  -0.86 2  ");
    EXPECT_EQ(roundedPointsOf(samples), "3.03 1.08  9.59 1.32  15.43 1.56  19.27 1.8  ");
    EXPECT_EQ(roundedPointsOf(marker), "9.59 1.32  ");
    // "2.8"
    EXPECT_EQ(positionsOf(text)->size(), labelGlyphs + 4 * 3);
    moveMouseTo(9, 2.1f);
    moveMouseTo(NAN, 1);
    EXPECT_EQ(roundedPointsOf(frame), "2 0  20 0  20 2  2 2  ");
    EXPECT_EQ(positionsOf(text)->size(), labelGlyphs);
}

TEST_F(OverlayGraphTest, RefillsWhatItHas) {
    show(300);
    const osg::GeoPositionsPtr positions = positionsOf(samples);
    for (const osg::UInt32 count : {4u, 300u}) {
        show(count);
        for (int i = 0; i < 50; ++i) moveMouseTo(10.0f + 0.01f * float(i), 1);
        EXPECT_TRUE(positionsOf(samples) == positions && positions->size() == count);
    }
    // Without samples the minimum is the largest float, the others are zero.
    show(1);
    moveMouseTo(9, 3);
    EXPECT_EQ(roundedPointsOf(lines), "2 0.2  20 0.2  2 0.2  20 0.2  ");
    EXPECT_EQ(positions->size() + positionsOf(marker)->size(), 0u);
    const PointPointMeasurement other(nullptr);
    graph.setActiveMeasurement(&other);
    graph.setLineWidth(5);
    moveMouseTo(9, 1);
    EXPECT_TRUE(graph.getActiveVisualisation() == osg::NullFC && !graph.isMeasurementSupported(nullptr));
}

} // namespace tesk::measurement
