#include <measurement/geometry/detail/VectorMath.h>
#include <measurement/scene/DistanceBoundingVolumeTree.h>
#include <measurement/section/GapMeasurement.h>
#include <measurement/section/GeometrySliceFactory.h>

#include "HostileScene.h"

#include <support/Primitives.h>

namespace tesk::measurement {

namespace {

/// What GapMeasurement has to come to, plane by plane, with one tree for each outline.
struct PlainGap {
    GapMeasurement::PointPairs pairs;
    float average = 0.0f, deviation = 0.0f, minimum = 3.4028235e38f, maximum = 0.0f;

    PlainGap(const osg::NodePtr& node1, const osg::Pnt3f& start, const osg::NodePtr& node2, const osg::Pnt3f& end,
             float step) {
        BoundingVolumeTree tree2;
        tree2.build(node2, true);
        osg::Vec3f direction = detail::difference(end, start);
        const float length = std::sqrt(detail::squaredLength(direction));
        direction.setValues(direction[0] / length, direction[1] / length, direction[2] / length);
        std::list<Segment> outline;
        for (float t = 0.0f; t <= length; t = t + step) {
            const float offset = -detail::dot(direction, osg::Vec3f(detail::pointAt(start, t, direction)));
            GeometrySliceFactory().createSlice(node1, {direction[0], direction[1], direction[2], offset}, outline);
            if (outline.empty()) continue;
            BoundingVolumeTree tree1;
            tree1.build(outline);
            const DistanceBoundingVolumeTree search(tree1, tree2, 3.4028235e38f);
            pairs.emplace_back(search.getClosestPoint1(), search.getClosestPoint2());
        }
        calcStatistics();
    }

private:
    static float distanceBetween(const osg::Pnt3f& point1, const osg::Pnt3f& point2) {
        return std::sqrt(detail::squaredLength(detail::difference(point1, point2)));
    }

    void calcStatistics() {
        if (pairs.empty()) return;
        const auto count = static_cast<float>(pairs.size());
        maximum = -minimum;
        for (const auto& [point1, point2] : pairs) average += distanceBetween(point1, point2);
        average /= count;
        for (const auto& [point1, point2] : pairs) {
            const float distance = distanceBetween(point1, point2);
            if (distance < minimum) minimum = distance;
            if (distance > maximum) maximum = distance;
            deviation += std::fabs(distance - average);
        }
        deviation /= count;
    }
};

} // namespace

TEST(GapMeasurement, ComesToWhatPlainSearchesFind) {
    test::Random random(25);
    GapMeasurement gap(nullptr);
    const int runs = test::differentialRuns(300);
    int samples = 0, touching = 0, without = 0, apart = 0;
    for (int run = 0; run < runs && !testing::Test::HasFailure(); ++run) {
        SCOPED_TRACE(run);
        std::vector<osg::Pnt3f> corners{{0, 0, 0}};
        const test::SceneNode node1 = test::hostileScene(random, corners), node2 = test::hostileScene(random, corners);
        const test::SceneNode scene = test::transform(test::hostileFrame(random), {node1, node2});
        const osg::Pnt3f start = random.chance(0.5f) ? random.point(2.0f) : corners[random.below(10) % corners.size()];
        const osg::Pnt3f end = start + random.vector(3.0f);
        const float step = start.dist(end) * random.real(0.1f, 0.5f);
        if (!(step > 0.0f && start.dist(end) + step > start.dist(end))) continue;
        gap.setNode1(node1, start);
        gap.setNode2(node2, end);
        gap.setSampleDistance(step);
        testing::internal::CaptureStdout();
        gap.update();
        const std::string output = testing::internal::GetCapturedStdout();
        testing::internal::CaptureStdout();
        const PlainGap expected(node1, start, node2, end, step);
        EXPECT_EQ(output, testing::internal::GetCapturedStdout());

        ASSERT_EQ(gap.getPointPairs().size(), expected.pairs.size());
        auto pair = gap.getPointPairs().begin();
        for (const auto& [point1, point2] : expected.pairs) {
            EXPECT_TRUE(test::identical(pair->first, point1) && test::identical(pair->second, point2));
            ++pair;
        }
        EXPECT_TRUE(test::identical(gap.getAverageDistance(), expected.average));
        EXPECT_TRUE(test::identical(gap.getDeviation(), expected.deviation));
        EXPECT_TRUE(test::identical(gap.getMinimumDistance(), expected.minimum));
        EXPECT_TRUE(test::identical(gap.getMaximumDistance(), expected.maximum));
        samples += static_cast<int>(expected.pairs.size());
        touching += !output.empty();
        without += expected.pairs.empty();
        apart += output.empty() && expected.minimum > 0.0f && !expected.pairs.empty();
    }
    EXPECT_GT(std::min({samples / 2, touching, without, apart}), runs / 10)
        << samples << ' ' << touching << ' ' << without << ' ' << apart;
}

} // namespace tesk::measurement
