#include <measurement/geometry/DistanceSegmentTriangle.h>
#include <measurement/geometry/DistanceTriangleTriangle.h>

#include <support/BruteForce.h>
#include <support/Primitives.h>
#include <support/Random.h>

#include <algorithm>

namespace tesk::measurement {

static const float largest = std::numeric_limits<float>::max();
static const float touching = 0x1p-23f;
static const Triangle ground{{0, 0, 0}, {4, 0, 0}, {0, 4, 0}};

/// Turned by the angle with cosine 0.6, axes swapped, moved.
static Triangle moved(Triangle triangle) {
    for (osg::Pnt3f* p : {&triangle.p0, &triangle.p1, &triangle.p2})
        p->setValues((*p)[2] + 1.0f, 0.6f * (*p)[0] - 0.8f * (*p)[1] - 2.0f, 0.8f * (*p)[0] + 0.6f * (*p)[1] + 3.0f);
    return triangle;
}

/// Unlike a constructor with these triangles, writes nothing to the output.
static DistanceTriangleTriangle measured(const Triangle& triangle1, const Triangle& triangle2) {
    DistanceTriangleTriangle query(ground, {{0, 0, 9}, {1, 0, 9}, {0, 1, 9}});
    query.calcDistance(triangle1, triangle2);
    return query;
}

TEST(DistanceSegmentTriangle, MeasuresTheEndsByTriangleAndPoint) {
    const struct {
        const char* place;
        Segment segment;
        float parameter;
        osg::Pnt3f onSegment, onTriangle;
        float squaredDistance;
    } rows[] = {
        {"crosses", {{1, 1, 1}, {1, 1, -3}}, 0.25f, {1, 1, 0}, {1, 1, 0}, 0.0f},
        {"ends above", {{1, 1, 3}, {1, 1, 2}}, 3.0f, {1, 1, 2}, {1, 1, 0}, 4.0f},
        {"starts above", {{1, 1, 2}, {1, 1, 3}}, -2.0f, {1, 1, 2}, {1, 1, 0}, 4.0f},
        {"no length", {{1, 1, 2}, {1, 1, 2}}, std::numeric_limits<float>::quiet_NaN(), {1, 1, 2}, {1, 1, 0}, 4.0f},
        // Crosses two edges, but these are measured at their starts.
        {"in the plane", {{-1, 1, 0}, {7, 1, 0}}, 0.125f, {0, 1, 0}, {0, 0, 0}, 1.0f},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.place);
        const DistanceSegmentTriangle query(row.segment, ground);
        EXPECT_TRUE(test::identical(query.getSegmentParameter(), row.parameter));
        EXPECT_TRUE(test::identical(query.getClosestSegmentPoint(), row.onSegment));
        EXPECT_TRUE(test::identical(query.getClosestTrianglePoint(), row.onTriangle));
        EXPECT_EQ(query.getSquaredDistance(), row.squaredDistance);
    }
}

TEST(DistanceTriangleTriangle, TakesTheFirstOfTheNearestEdges) {
    const Triangle hanging{{1, 1, 1}, {1, 1, 5}, {2, 1, 5}};
    const struct {
        const char* place;
        Triangle triangle1, triangle2;
        float squaredDistance;
        osg::Pnt3f closest1, closest2;
    } rows[] = {
        {"parallel faces", ground, {{0, 0, 2}, {4, 0, 2}, {0, 4, 2}}, 4.0f, {0, 4, 0}, {0, 4, 2}},
        {"vertex over face", ground, hanging, 1.0f, {1, 1, 0}, {1, 1, 1}},
        {"face under vertex", hanging, ground, 1.0f, {1, 1, 1}, {1, 1, 0}},
        {"first edge of the first without length", {{0, 0, 0}, {4, 0, 0}, {0, 0, 0}}, ground, largest, {}, {}},
        {"last edge of the first without length", {{1, 1, 3}, {1, 1, 2}, {1, 1, 2}}, ground, 4, {1, 1, 2}, {1, 1, 0}},
        {"first edge of the second without length", ground, {{1, 1, 1}, {9, 9, 9}, {1, 1, 1}}, 2, {0, 1, 0}, {1, 1, 1}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.place);
        const DistanceTriangleTriangle query(row.triangle1, row.triangle2);
        EXPECT_EQ(query.getSquaredDistance(), row.squaredDistance);
        EXPECT_TRUE(test::identical(query.getClosestPoint1(), row.closest1));
        EXPECT_TRUE(test::identical(query.getClosestPoint2(), row.closest2));
    }
}

TEST(DistanceTriangleTriangle, ConstructorSaysThatTrianglesTouch) {
    const Triangle small{{0, 0, 0}, {0x1p-5f, 0, 0}, {0, 0x1p-5f, 0}};
    testing::internal::CaptureStdout();
    DistanceTriangleTriangle query(small, {{0, 0, 3.4e-4f}, {0, 0, 1}, {-1, -1, 1}});
    EXPECT_GT(query.getSquaredDistance(), 0.0f);
    query.calcDistance(ground, {{4, 0, 0}, {8, 0, 1}, {8, 1, 0}});
    EXPECT_EQ(query.getSquaredDistance(), 0.0f);
    EXPECT_GT(DistanceTriangleTriangle(small, {{0, 0, 3.5e-4f}, {0, 0, 1}, {-1, -1, 1}}).getSquaredDistance(), 0.0f);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Zero distance with tri!\n");
}

TEST(DistanceTriangleTriangle, DistanceIsBetweenPointsOnTheTrianglesWhateverTheirOrder) {
    test::Random random(29);
    const int runs = 300;
    int apart = 0;
    for (int run = 0; run < runs; ++run) {
        const Triangle a = random.triangle(1.0f), b = random.triangle(1.0f);
        SCOPED_TRACE(testing::Message() << a << ", " << b);
        const DistanceTriangleTriangle query = measured(a, b);
        const float distance = query.getSquaredDistance();
        ASSERT_NEAR(test::squaredDistance(a, query.getClosestPoint1()), 0.0, 1e-10);
        ASSERT_NEAR(test::squaredDistance(b, query.getClosestPoint2()), 0.0, 1e-10);
        ASSERT_NEAR(test::squaredDistance(query.getClosestPoint1(), query.getClosestPoint2()), distance, 1e-5);
        // More than the minimum perhaps, never less, and exact where the triangles cross.
        const double minimum = test::squaredDistance(a, b);
        ASSERT_GE(distance, minimum - 1e-5);
        ASSERT_EQ(distance <= touching, minimum < 1e-7);
        apart += distance > touching;

        const float swapped = measured(b, a).getSquaredDistance();
        ASSERT_TRUE(swapped == distance || std::max(swapped, distance) <= touching);
        for (const Triangle& turned : {Triangle{a.p1, a.p2, a.p0}, Triangle{a.p2, a.p0, a.p1}})
            ASSERT_NEAR(measured(turned, b).getSquaredDistance(), distance, 1e-4f);
        ASSERT_NEAR(measured(moved(a), moved(b)).getSquaredDistance(), distance, 1e-4f);
        // The other winding starts the edges at their other ends: another distance perhaps, but no other crossing.
        for (const Triangle& turned : {Triangle{a.p0, a.p2, a.p1}, {a.p2, a.p1, a.p0}, {a.p1, a.p0, a.p2}})
            ASSERT_EQ(measured(turned, b).getSquaredDistance() <= touching, distance <= touching);
    }
    // Too few of either and the agreement would prove nothing about it.
    EXPECT_GT(std::min(apart, runs - apart), runs / 5);
}

} // namespace tesk::measurement
