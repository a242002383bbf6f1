#include <measurement/section/LineGraph.h>

#include "PlainGraph.h"

#include <support/BruteForce.h>
#include <support/Primitives.h>
#include <support/Random.h>
#include <support/Scenes.h>

#include <OpenSG/OSGGeometry.h>

namespace tesk::measurement {

namespace {

/// Lines between numbered positions.
test::SceneNode wires(const std::vector<osg::Pnt3f>& positions, const std::vector<osg::UInt32>& indices) {
    const test::SceneNode node = test::geometry({positions, indices});
    osg::GeometryPtr::dcast(node->getCore())->getTypes()->setValue(GL_LINES, 0);
    return node;
}

/// Positions each joined to the next and the last to the first, with a place between the first two.
struct Ring {
    explicit Ring(const std::vector<osg::Pnt3f>& positions) {
        std::vector<osg::UInt32> indices;
        const auto count = static_cast<osg::UInt32>(positions.size());
        for (osg::UInt32 i = 0; i < count; ++i) indices.insert(indices.end(), {i, (i + 1) % count});
        graph.setNode(wires(positions, indices));
        start = graph.at(positions[0] + (positions[1] - positions[0]) * 0.5f);
    }

    LineGraph graph;
    LineGraphIterator start;
};

} // namespace

TEST(LineGraph, IsWalkedAlongTheArcLength) {
    test::Random random(44);
    int ends = 0, moves = 0, rounds = 0;
    for (int run = 0; run < 3000; ++run) {
        SCOPED_TRACE(run);
        test::PlainGraph plain;
        std::vector<osg::UInt32> indices;
        for (int i = 0; i < 7; ++i) plain.points.push_back(random.point(5.0f));
        for (int i = 0; i < 7; ++i) {
            const auto a = random.below(7), b = i < 3 ? (a + 1) % 7 : random.below(7);
            indices.insert(indices.end(), {a, b});
            if (a != b) plain.lines.emplace_back(a, b);
        }
        const LineGraph graph(test::transform(test::scaled(0.5f), {wires(plain.points, indices)})->getChild(0));
        for (osg::Pnt3f& point : plain.points) point *= 0.5f;

        const osg::Pnt3f picked = random.point(3.0f);
        LineGraphIterator it = graph.at(picked);
        double nearest = 1e30;
        for (const auto& [a, b] : plain.lines)
            nearest = std::min(nearest, test::squaredDistance(Segment{plain.points[size_t(a)], plain.points[size_t(b)]},
                                                              picked));
        ASSERT_NEAR(test::squaredDistance(it.getPosition(), picked), nearest, 1e-4);

        const test::PlainPlace start{it.getFirstIndex(), it.getSecondIndex(), double(it.getParameter())};
        const bool isForward = random.chance(0.5f);
        const float distance = random.real(0.0f, 60.0f);
        test::PlainPlace place = isForward ? start : start.turned();
        const auto moved = plain.walk(place, distance, [&](const test::PlainPlace& entered) {
            rounds += entered.from == start.from && entered.to == start.to;
            return true;
        });
        if (!moved) continue;
        isForward ? it.moveForward(distance) : it.moveBackward(distance);
        if (!isForward) place = place.turned();
        ASSERT_TRUE(it.getFirstIndex() == place.from && it.getSecondIndex() == place.to);
        ASSERT_NEAR(it.getParameter(), place.t, 1e-3);
        const bool isEnd = isForward ? it.isAtEnd() : it.isAtBeginning();
        ends += isEnd;
        moves += !isEnd;
    }
    EXPECT_GT(std::min({ends, moves, rounds}), 300);
}

TEST(LineGraph, FindsNoPlaceWhereNothingHasLength) {
    const test::SceneNode shared = test::group({}), point = wires({{1, 1, 1}, {1, 1, 1}}, {0, 1});
    for (const osg::NodePtr& node : {osg::NodePtr(), shared.get(), point.get()}) {
        LineGraphIterator it = LineGraph(node).at({1, 1, 1});
        EXPECT_TRUE(it.getFirstNode() == nullptr && it.getFirstIndex() == -1 && it.getSecondIndex() == -1);
        EXPECT_TRUE(it.isAtEnd() && it.isAtBeginning() && !it.findNextPoint() && !it.findPreviousPoint());
        it.moveToEnd();
        it.moveForward(1.0f);
        EXPECT_EQ(it.getParameter(), 1.0f);
        EXPECT_TRUE(test::identical(it.getPosition(), {0, 0, 0}));
    }
    // Of two equally near lines the one with the lower indices; the line to a position that is not there is left out.
    const LineGraph corner(wires({{1, 0, 0}, {0, 0, 0}, {0, 1, 0}}, {1, 2, 1, 0, 0, 9}));
    EXPECT_EQ(corner.at({-1, -1, 0}).getSecondIndex(), 0);
}

TEST(LineGraphIterator, TakesTheStraightestWayOn) {
    // A stem along x up to (1, 0, 0), where two branches turn off by the same angle.
    const std::vector<osg::Pnt3f> fork{{0, 0, 0}, {1, 0, 0}, {2, 1, 0}, {2, -1, 0}, {1, 0, 5}};
    const LineGraph first(wires(fork, {0, 1, 4, 1, 1, 3, 1, 2})), second(wires(fork, {0, 1, 4, 1, 1, 2, 1, 3}));
    for (const LineGraph* graph : {&first, &second}) {
        LineGraphIterator it = graph->at({0.5f, 0, 0});
        const int taken = graph == &first ? 3 : 2;
        EXPECT_TRUE(it.findNextPoint() && it.getFirstIndex() == 1 && it.getSecondIndex() == taken);
        EXPECT_TRUE(!it.findNextPoint() && it.getSecondIndex() == taken && it.getParameter() == 0.5f);
        it.moveForward(1.0f);
        EXPECT_EQ(it.getParameter(), 1.0f);
        // Back from a branch the stem is straighter than the other branch.
        it.moveToStart();
        EXPECT_TRUE(it.getFirstIndex() == 0 && it.getParameter() == 0.0f && it.isAtBeginning());
    }
}

TEST(LineGraphIterator, TakesTheLastTwentiethForTheEnd) {
    const LineGraph line(wires({{0, 0, 0}, {1, 0, 0}}, {0, 1, 0, 1}));
    const struct {
        float parameter, forward, backward;
    } rows[] = {{0.94f, 1, 0}, {0.95f, 0.95f, 0}, {0.06f, 1, 0}, {0.05f, 1, 0.05f}};
    for (const auto& row : rows) {
        LineGraphIterator forward = line.at({0.5f, 0, 0}), backward = forward;
        forward.setParameter(row.parameter);
        backward.setParameter(row.parameter);
        forward.moveForward(2.0f);
        backward.moveBackward(2.0f);
        EXPECT_TRUE(forward.getParameter() == row.forward && backward.getParameter() == row.backward) << row.parameter;
    }
}

TEST(LineGraphIterator, CirclesForAsLongAsDistanceRemains) {
    test::Random random(7);
    for (int run = 0; run < 100; ++run) {
        // Flat and convex; some edges vanish in the sum after many rounds.
        std::vector<osg::Pnt3f> corners{{std::cos(-0.2f), std::sin(-0.2f), 0.0f}};
        for (float angle = 0.0f; angle < 6.0f; angle += random.chance(0.3f) ? 1e-4f : random.real(0.1f, 2.0f))
            corners.emplace_back(std::cos(angle), std::sin(angle), 0.0f);
        if (corners.size() < 3) continue;
        const float distance = random.real(0.0f, run % 10 == 0 ? 2e6f : 5e4f);
        const Ring ring(corners);
        LineGraphIterator forward = ring.start, backward = ring.start;
        forward.moveForward(distance);
        backward.moveBackward(distance);

        const auto length = [&](size_t i) {
            const osg::Vec3f edge = corners[(i + 1) % corners.size()] - corners[i];
            return std::sqrt(edge[0] * edge[0] + edge[1] * edge[1] + edge[2] * edge[2]);
        };
        const auto expectAfter = [&](const LineGraphIterator& it, size_t step) {
            size_t edge = 0;
            float rest = ring.start.getParameter(), walked = 0.0f;
            if (step == 1) rest = 1.0f - rest;
            for (; !(distance <= rest * length(edge) + walked); rest = 1.0f) {
                walked = rest * length(edge) + walked;
                edge = (edge + step) % corners.size();
            }
            ASSERT_EQ(it.getFirstIndex(), static_cast<int>(edge));
            const float moved = (distance - walked) / length(edge);
            if (step == 1)
                ASSERT_EQ(it.getParameter(), (rest == 1.0f ? 0.0f : ring.start.getParameter()) + moved);
            else
                ASSERT_EQ(it.getParameter(), rest - moved);
        };
        expectAfter(forward, 1);
        expectAfter(backward, corners.size() - 1);
    }
}

TEST(LineGraphIterator, AlwaysComesToAnEnd) {
    const float infinity = HUGE_VALF, nan = std::nanf("");
    std::vector<osg::Pnt3f> uneven{{0, 0, 0}, {100, 0, 0}};
    for (float i = 0.0f; i < 20000.0f; ++i) uneven.emplace_back(1e-3f * (20000.0f - i), 1.0f, 0.0f);
    const std::vector<osg::Pnt3f> rings[] = {{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}},
                                             {{0, 0, 0}, {1, 0, 0}, {1, 0, 0}, {0, 1, 0}},
                                             {{0, 0, 0}, {1, 0, 0}, {1e30f, 0, 0}, {0, 1, 0}},
                                             {{0, 0, 0}, {1, 0, 0}, {infinity, 0, 0}, {0, 1, 0}},
                                             {{0, 0, 0}, {1, 0, 0}, {0, nan, 0}, {0, 1, 0}},
                                             uneven};
    for (const auto& corners : rings) {
        for (const float distance : {1e30f, infinity, nan, -infinity}) {
            const Ring ring(corners);
            LineGraphIterator it = ring.start;
            it.moveForward(distance);
            it.moveBackward(distance);
            it.moveToEnd();
            it.moveToStart();
            EXPECT_EQ(it.getParameter(), 0.0f);
        }
    }
    // Both ends of a loop are on the edge that leads back to a node already passed.
    const Ring triangle(rings[0]);
    LineGraphIterator it = triangle.start;
    it.moveToEnd();
    EXPECT_TRUE(it.getFirstIndex() == 2 && it.getSecondIndex() == 0);
    it = triangle.start;
    it.moveToStart();
    EXPECT_TRUE(it.getFirstIndex() == 1 && it.getSecondIndex() == 2);
}

} // namespace tesk::measurement
