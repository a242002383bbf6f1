#include <measurement/section/LineGraph.h>

#include "PlainGraph.h"

#include <support/BruteForce.h>
#include <support/Scenes.h>

#include <OpenSG/OSGGeometry.h>

#include <gtest/gtest.h>

#include <cmath>

namespace tesk::measurement {

// The positions are in world coordinates.
static LineGraph graphOf(test::Mesh mesh, osg::UInt8 type = GL_LINES) {
    for (osg::Pnt3f& position : mesh.positions) position *= 2.0f;
    const test::SceneNode half = test::transform(test::scaled(0.5f), {test::geometry(mesh)});
    osg::GeometryPtr::dcast(half->getChild(0)->getCore())->getTypes()->setValue(type, 0);
    return LineGraph(half->getChild(0));
}

TEST(LineGraph, IsWalkedAlongTheArcLength) {
    test::Random random(44);
    int ends = 0, rounds = 0;
    for (int run = 0; run < 3000; ++run) {
        const test::PlainGraph plain(random);
        test::Mesh mesh{plain.points, {3, 3}};
        for (const auto& [a, b] : plain.lines)
            mesh.indices.insert(mesh.indices.end(), {osg::UInt32(a), osg::UInt32(b)});
        const LineGraph graph = graphOf(mesh);
        const osg::Pnt3f picked = random.point(6.0f);
        LineGraphIterator it = graph.at(picked);
        const double distanceFound = test::squaredDistance(it.getPosition(), picked);
        for (const auto& [a, b] : plain.lines)
            ASSERT_LT(distanceFound, test::squaredDistance(Segment{plain.points[a], plain.points[b]}, picked) + 1e-4);
        const test::PlainPlace start{it.getFirstIndex(), it.getSecondIndex(), double(it.getParameter())};
        const bool isForward = random.chance(0.5f);
        const float distance = random.real(0.0f, 90.0f);
        test::PlainPlace place = isForward ? start : start.turned();
        const auto enter = [&](const test::PlainPlace& p) { return rounds += p.from == start.from, true; };
        if (!plain.walk(place, distance, enter)) continue;
        isForward ? it.moveForward(distance) : it.moveBackward(distance);
        if (!isForward) place = place.turned();
        ASSERT_TRUE(it.getFirstIndex() == place.from && it.getSecondIndex() == place.to) << run;
        ASSERT_NEAR(it.getParameter(), place.t, 1e-3) << run;
        ends += isForward ? it.isAtEnd() : it.isAtBeginning();
    }
    EXPECT_TRUE(ends > 500 && ends < 2500 && rounds > 300);
}

TEST(LineGraphIterator, TakesTheFirstOfEqualWays) {
    for (const osg::UInt32 taken : {2u, 3u}) {
        const std::vector<osg::Pnt3f> fork{{0, 0, 0}, {1, 0, 0}, {2, 1, 0}, {2, -1, 0}};
        const LineGraph graph = graphOf({fork, {0, 1, 1, taken, 1, 5 - taken}});
        LineGraphIterator it = graph.at({0.95f, 0, 0});
        EXPECT_TRUE(it.findNextPoint() && it.getSecondIndex() == int(taken) && it.isAtEnd());
    }
}

TEST(LineGraphIterator, CountsTheLastTwentiethBeforeADeadEndAsReached) {
    const LineGraph graph = graphOf({{{0, 0, 0}, {1, 0, 0}, {2, 0, 0}}, {0, 1, 1, 2}});
    LineGraphIterator last = graph.at({1.5f, 0, 0}), first = graph.at({0.5f, 0, 0});
    for (const float parameter : {0.95f, std::nextafter(0.95f, 0.0f)}) {
        last.setParameter(parameter);
        EXPECT_EQ(last.isAtEnd(), parameter == 0.95f);
        last.moveForward(0.01f);
        EXPECT_EQ(last.getParameter() == parameter, parameter == 0.95f) << "a reached end is not left";
    }
    for (const float parameter : {0.05f, std::nextafter(0.05f, 1.0f)}) {
        first.setParameter(parameter);
        EXPECT_EQ(first.isAtBeginning(), parameter == 0.05f);
        first.moveBackward(0.01f);
        EXPECT_EQ(first.getParameter() == parameter, parameter == 0.05f);
    }
    first.moveToEnd();
    EXPECT_TRUE(first.getFirstIndex() == 1 && first.getSecondIndex() == 2 && first.getParameter() == 1.0f);
    first.moveToStart();
    EXPECT_TRUE(first.getFirstIndex() == 0 && first.getSecondIndex() == 1 && first.getParameter() == 0.0f);
}

TEST(LineGraphIterator, CirclesAsIfEveryEdgeWereWalked) {
    test::Random random(7);
    for (int run = 0; run < 60; ++run) {
        // Short edges vanish in the sum after many rounds; lengths of few bits are halfway when it is rounded.
        std::vector<osg::Pnt3f> points;
        for (osg::UInt32 i = 0; i < 6; ++i) {
            const osg::Pnt3f coarse(float(8 * random.below(200) + i) * 0x1p-10f, 0, 0);
            points.push_back(run % 2 ? coarse : i % 2 ? points.back() + random.vector(1e-3f) : random.point(1.0f));
        }
        const LineGraph graph = graphOf({points, {}}, GL_LINE_LOOP);
        const float distance = random.real(0.0f, run % 10 ? 2e5f : 2e7f);
        LineGraphIterator it = graph.at(points[0]), end = it;
        end.moveToEnd();
        EXPECT_EQ(end.getSecondIndex(), it.getFirstIndex());
        int edge = it.getFirstIndex();
        float t = it.getParameter(), walked = 0.0f;
        const auto length = [&] { return (points[(edge + 1) % 6] - points[edge]).length(); };
        for (; !(distance <= (1.0f - t) * length() + walked); t = 0.0f, edge = (edge + 1) % 6)
            walked = (1.0f - t) * length() + walked;
        it.moveForward(distance);
        ASSERT_TRUE(it.getFirstIndex() == edge && it.getParameter() == t + (distance - walked) / length()) << run;
    }
}

TEST(LineGraphIterator, ComesToAnEndOnAnyLoop) {
    std::vector<osg::Pnt3f> loop{{0, 0, 0}, {100, 0, 0}};
    for (float i = 0.0f; i < 20000.0f; ++i) loop.emplace_back(20.0f - 1e-3f * i, 1.0f, 0.0f);
    for (const osg::Pnt3f& last : {loop.back(), {0, 0, 0}, {1e30f, 0, 0}, {0, NAN, 0}}) {
        loop.back() = last;
        const LineGraph graph = graphOf({loop, {}}, GL_LINE_LOOP);
        for (const float distance : {1e30f, HUGE_VALF, NAN, -HUGE_VALF}) {
            LineGraphIterator it = graph.at({50, 0, 0});
            it.moveForward(distance);
            it.moveBackward(distance);
        }
    }
}

} // namespace tesk::measurement
