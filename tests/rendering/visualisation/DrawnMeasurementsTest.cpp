#include "../drawing/DrawnScene.h"

#include <measurement/model/CircleMeasurement.h>
#include <measurement/model/MeasurementManager.h>
#include <measurement/model/PointPointMeasurement.h>
#include <measurement/section/LineObjectMeasurement.h>
#include <measurement/visualisation/CircleMeasurementVisualisation.h>
#include <measurement/visualisation/LineObjectLegendVisualisation.h>
#include <measurement/visualisation/LineObjectMeasurementVisualisation.h>
#include <measurement/visualisation/OverlayGraphMeasurementVisualisation.h>
#include <measurement/visualisation/SimpleMeasurementVisualisation.h>
#include <support/Random.h>
#include <support/SceneText.h>

#include <gtest/gtest.h>

#include <cmath>

namespace tesk::test {

namespace {

const bool started = osg::osgInit(0, nullptr);
const std::uint32_t sampleBlue = 0x33ccff, sampleYellow = 0xcccc00;

/// All visualisations that there are. Beside the scene a polyline, from 0.85 to 1.15 above a floor.
struct ShownMeasurements {
    SceneNode parts = group({lines({{{-1, 0.35f, 0}, {0, 0.5f, 0}}, {{0, 0.5f, 0}, {1, 0.65f, 0}}}),
                             triangles({{{-9, -0.5f, -9}, {9, -0.5f, -9}, {0, -0.5f, 9}}})});
    SceneNode scene = group({});
    measurement::SimpleMeasurementVisualisation distances;
    measurement::CircleMeasurementVisualisation circles;
    measurement::LineObjectMeasurementVisualisation samples;
    measurement::OverlayGraphMeasurementVisualisation chart;
    measurement::LineObjectLegendVisualisation legend;
    measurement::MeasurementManager manager;

    ShownMeasurements() {
        measurement::MeasurementVisualisation* const all[] = {&distances, &circles, &samples, &chart, &legend};
        for (auto* const visualisation : all) manager.addVisualisation(visualisation);
        manager.setVisualisationRoot(scene);
    }

    void addDistance(const osg::Pnt3f& start, const osg::Pnt3f& end) {
        auto* const distance = manager.createPointPointMeasurement();
        distance->setPoint1(osg::NullFC, start);
        distance->setPoint2(osg::NullFC, end);
        manager.updateVisualisations(distance);
    }
    auto* addSamples(const osg::Pnt3f& start, float step) {
        auto* const sampled = manager.createLineObjectMeasurement();
        sampled->setLine(parts->getChild(0), start);
        sampled->setNode(parts->getChild(1));
        sampled->setSampleDistance(step);
        sampled->update();
        return sampled;
    }
    void setActive(const measurement::Measurement* measurement) {
        chart.setActiveMeasurement(measurement);
        legend.setActiveMeasurement(measurement);
    }
};

/// Creates, changes and removes measurements, as hosts do, and as no host should.
class RandomHost : public ShownMeasurements {
public:
    void act(DrawnScene& drawn) {
        const auto& all = manager.getMeasurements();
        const auto count = static_cast<std::uint32_t>(all.size());
        measurement::Measurement* const some = count == 0 ? nullptr : *std::next(all.begin(), random.below(count));
        const std::uint32_t deed = random.below(8);
        if (deed < 3) create();
        if (deed == 3) manager.updateVisualisations(some);
        if (deed == 4) manager.removeMeasurement(some);
        if (deed == 5) setActive(random.chance(0.8f) ? some : nullptr);
        if (deed == 6) chart.mouseMoved(&drawn.getAction(), {number() * 50, 60 + 5 * number()});
        if (deed == 7) setLooks();
    }

private:
    float number() {
        const float odd[] = {NAN, HUGE_VALF, -3e38f, 1e30f, 1e-42f, 0};
        return random.chance(0.9f) ? random.real(-1.5f, 1.5f) : odd[random.below(6)];
    }
    osg::Pnt3f point() { return {number(), number(), number()}; }
    osg::Color3f color() { return {number(), number(), number()}; }
    void create() {
        const std::uint32_t kind = random.below(3);
        if (kind == 0) addDistance(point(), point());
        if (kind == 1) addSamples(random.chance(0.7f) ? osg::Pnt3f(0, 0.5f, 0) : point(), random.real(0.02f, 0.5f));
        if (kind < 2) return;
        auto* const circle = manager.createCircleMeasurement();
        circle->setPoint1(osg::NullFC, point());
        circle->setPoint2(osg::NullFC, point());
        circle->setPoint3(osg::NullFC, point());
        circle->update();
    }
    void setLooks() {
        const int digits[] = {-1, 0, 1, 3, 40, 3000};
        distances.setPrecision(digits[random.below(6)]);
        distances.setTextColor(color());
        distances.setTextScale(number());
        distances.setScaleLimits(number(), number());
        circles.setLineWidth(number());
        samples.setLineWidth(number());
        chart.setBackColor(color());
        chart.setPrecision(digits[random.below(6)]);
    }

    Random random{17};
};

} // namespace

TEST(DrawnMeasurements, BearWhateverHostsDoAndLeaveNothingBehind) {
    RandomHost host;
    DrawnScene drawn(host.scene, 96, 64);
    const auto before = drawn.getPixels();
    int shownCount = 0;
    for (int run = 0; run < 200; ++run) {
        host.act(drawn);
        drawn.draw();
        const auto shown = drawn.getPixels();
        shownCount += shown != before;
        // No volume is too small for what it holds, labels and neighbours without a place included.
        drawn.getAction().setFrustumCulling(false);
        drawn.draw();
        ASSERT_TRUE(drawn.getPixels() == shown) << "run " << run;
        drawn.getAction().setFrustumCulling(true);
    }
    EXPECT_GT(shownCount, 130);
    host.setActive(nullptr);
    host.manager.removeAllMeasurements();
    drawn.draw();
    EXPECT_TRUE(drawn.getPixels() == before);
    // The shapes that all circles share keep theirs: ring, marker, axis and stroke.
    EXPECT_LE(countBuffers(), 4 * 2);
}

TEST(DrawnMeasurements, StandInFrontOfThePartButForArrowheads) {
    if (!hasFont()) GTEST_SKIP();
    ShownMeasurements shown;
    shown.distances.setLineColor({0, 1, 0});
    shown.distances.setTextColor({1, 0, 0});
    shown.distances.setTextScale(0.5f);
    shown.addDistance({-1.5f, 0, 0}, {1.5f, 0, 0});
    const auto part = [](float z) { return transform(scaled(4), {transform(translated(-0.5f, -0.5f, z), {quad(0)})}); };
    shown.scene->addChild(part(-0.1f));
    DrawnScene drawn(shown.scene, 400, 200);
    const int withHeads = drawn.count(green), text = drawn.count(red);
    EXPECT_GT(text, 200);
    shown.scene->addChild(part(0.1f));
    drawn.draw();
    for (const float x : {-1.4f, -0.5f, 1.4f}) EXPECT_EQ(drawn.colorAt(x, 0), green) << x;
    // Two triangles, 30 pixels long and 12 wide, but for the line.
    EXPECT_NEAR(withHeads - drawn.count(green), 2 * 30 * (12 / 2 - 2), 60);
    EXPECT_NEAR(drawn.count(red), text, 10);
}

TEST(DrawnMeasurements, KeepTheLabelOfALineBesideTheView) {
    if (!hasFont()) GTEST_SKIP();
    ShownMeasurements shown;
    shown.distances.setTextColor({1, 0, 0});
    // The view is 2 high, and 4 wide.
    for (const auto& [scale, nearLimit, farLimit] : {std::tuple(0.6f, 1.0f, 1.0f), std::tuple(0.3f, 0.0f, 1e20f)}) {
        shown.distances.setTextScale(scale);
        shown.distances.setScaleLimits(nearLimit, farLimit);
        shown.addDistance({-2.1f, 0.2f, 0}, {-2.1f, -0.4f, 0});
        EXPECT_GT(DrawnScene(shown.scene, 400, 200).count(red), 200) << farLimit;
        shown.manager.removeAllMeasurements();
    }
}

TEST(DrawnMeasurements, ColorSamplesByTheirDistanceInSceneAndChartAtAnySize) {
    ShownMeasurements shown;
    const auto* const sampled = shown.addSamples({0, 0.5f, 0}, 0.1f);
    shown.setActive(sampled);
    DrawnScene drawn(shown.scene, 650, 420);
    // The eighth samples to both sides.
    EXPECT_EQ(drawn.colorAt(-0.791f, 0.1f), sampleBlue);
    EXPECT_EQ(drawn.colorAt(0.791f, 0.1f), sampleYellow);
    const auto count = static_cast<float>(sampled->getPointPairs().size());
    for (const int unit : {20, 10}) {
        SCOPED_TRACE(unit);
        drawn.resize(650 * unit / 20, 420 * unit / 20);
        drawn.draw();
        const auto at = [&](float x, float y) { return drawn.pixelAt(int(x * float(unit)), int(y * float(unit))); };
        const float step = 18 / (count + 1);
        EXPECT_EQ(at(3.5f + 2 * step, 0.7f + 1.6f * 0.87f / 1.15f), sampleBlue);
        EXPECT_EQ(at(21.5f - 2 * step, 0.7f + 1.6f * 1.13f / 1.15f), sampleYellow);
        // The left edge of the legend, and what is beside it.
        EXPECT_NE(at(24.75f, 18.9f), black);
        EXPECT_EQ(at(24.25f, 18.9f), black);
    }
}

} // namespace tesk::test
