#include <measurement/section/LineObjectMeasurement.h>

#include <measurement/model/MeasurementManager.h>

#include "PlainGraph.h"

#include <support/BruteForce.h>
#include <support/Scenes.h>

#include <gtest/gtest.h>

#include <deque>

namespace tesk::measurement {

/// Nothing where rounding may decide about a sample. Counts where a walk meets its own track.
static std::optional<std::deque<osg::Pnt3f>> measurePlainly(const test::PlainGraph& graph, const Triangle& object,
                                                            const test::PlainPlace& start, float step, int& meetings) {
    std::deque<osg::Pnt3f> samples;
    std::set<int> visited{start.from};
    const double startDistance = std::sqrt(test::squaredDistance(object, graph.at(start)));
    for (const bool isForward : {true, false}) {
        test::PlainPlace place = isForward ? start : start.turned();
        for (std::optional<bool> moved = true; *moved;) {
            const double distance = std::sqrt(test::squaredDistance(object, graph.at(place)));
            const double change = std::fabs(distance / startDistance - 1.0);
            if (std::fabs(change - 0.2) < 1e-3) return std::nullopt;
            if (change > 0.2) break;
            samples.insert(isForward ? samples.end() : samples.begin(), graph.at(place));
            moved = graph.walk(place, double(step), [&](const test::PlainPlace& entered) {
                return visited.insert(isForward ? entered.from : entered.to).second || !++meetings;
            });
            if (!moved) return std::nullopt;
        }
    }
    return samples;
}

TEST(LineObjectMeasurement, AgreesWithThePlainWay) {
    test::Random random(45);
    LineObjectMeasurement measurement(nullptr);
    int meetings = 0;
    for (int run = 0; run < 2000; ++run) {
        const test::PlainGraph graph(random);
        const auto [from, to] = graph.lines[random.below(std::uint32_t(graph.lines.size()))];
        const test::PlainPlace start{from, to, double(random.real(0.01f, 0.9f))};
        const Triangle object = random.triangle(20.0f);
        const float step = random.real(0.5f, 8.0f);
        const auto expected = measurePlainly(graph, object, start, step, meetings);
        if (!expected) continue;
        // Each line in a node of its own, the starts not quite where other lines have them.
        const osg::Vec3f offset(8, 0, 0);
        test::SceneNodes parts;
        for (const auto& [a, b] : graph.lines)
            parts.push_back(test::lines({{graph.points[a] + offset + random.vector(2e-5f), graph.points[b] + offset}}));
        const auto line = test::transform(test::translated(-8, 0, 0), parts), node = test::triangles({object});
        measurement.setLine(line, graph.at(start));
        measurement.setNode(node);
        measurement.setSampleDistance(step);
        measurement.update();
        ASSERT_EQ(measurement.getPointPairs().size(), expected->size()) << run;
        auto sample = expected->begin();
        double sum = 0.0;
        for (const auto& [onLine, onObject] : measurement.getPointPairs()) {
            const double distance = std::sqrt(test::squaredDistance(object, *sample));
            EXPECT_LT(onLine.dist(*sample++), 2e-3f) << run;
            EXPECT_NEAR(onLine.dist(onObject), distance, 2e-3) << run;
            sum += distance;
        }
        EXPECT_NEAR(measurement.getValue(), sum / double(expected->size()), 2e-3) << run;
    }
    EXPECT_GT(meetings, 300);
}

TEST(LineObjectMeasurement, SamplesBothWaysAndAlwaysEnds) {
    // Along x from 0 to 5 and, after the gap, to 10.
    const struct {
        float gap, picked, step;
        std::vector<float> places;
    } rows[] = {{0, 4, 3, {0, 1, 4, 4, 7, 10}},
                {0.004f, 9.8f, 4, {0, 1.8f, 5.8f, 9.8f, 9.8f}},
                {0.006f, 2, 4, {0, 2, 2, 5}},
                {0, 4, HUGE_VALF, {0, 4, 4, 10}},
                {0, 4, -1, {4, 4}},
                {0, 4, NAN, {4, 4}},
                {0, 4, 1e-8f, {4, 4}},
                {0, 0, 1e-8f, {0, 0}}};
    MeasurementManager manager;
    LineObjectMeasurement& measurement = *manager.createLineObjectMeasurement();
    const test::SceneNode object = test::triangles({{{-900, -900, 2}, {900, -900, 2}, {0, 900, 2}}});
    measurement.setNode(object);
    const auto expectPlaces = [&](const test::SceneNode& line, float picked, const std::vector<float>& expected) {
        measurement.setLine(line, {picked, 0.1f, 0});
        measurement.update();
        std::vector<float> places;
        for (const auto& pair : measurement.getPointPairs()) places.push_back(std::round(pair.first[0] * 100) / 100);
        EXPECT_EQ(places, expected);
        EXPECT_TRUE(measurement.getMinimumDistance() == 2.0f && measurement.getMaximumDistance() == 2.0f);
    };
    for (const auto& [gap, picked, step, places] : rows) {
        measurement.setSampleDistance(step);
        expectPlaces(test::lines({{{0, 0, 0}, {5, 0, 0}}, {{5 + gap, 0, 0}, {10, 0, 0}}}), picked, places);
    }
    expectPlaces(test::named(test::group({}), "no line"), 4, {0, 0});
    // Without an object only the samples go, and the base class is not asked: it would take the name of this node.
    measurement.setNode(osg::NullFC);
    measurement.setNode2(test::named(object, "object"));
    expectPlaces(object, 4, {});
    EXPECT_EQ(measurement.getName(), "no line  to  Geometry");
}

} // namespace tesk::measurement
