#include <measurement/geometry/DistanceSegmentPoint.h>
#include <measurement/geometry/DistanceTrianglePoint.h>
#include <measurement/geometry/Validity.h>

#include <support/BruteForce.h>
#include <support/Primitives.h>
#include <support/Random.h>

#include <algorithm>
#include <cmath>

namespace tesk::measurement {

static const float nan = std::numeric_limits<float>::quiet_NaN();

TEST(Validity, HoldsUpToTheLimitInEachCoordinate) {
    for (const float limit : {1e30f, -1e30f}) {
        EXPECT_TRUE(isValid({limit, limit, limit}));
        for (const float x : {std::nextafter(limit, 2.0f * limit), nan})
            EXPECT_FALSE(isFiniteNumber(x) || isValid({x, 0, 0}) || isValid({0, x, 0}) || isValid({0, 0, x})) << x;
    }
}

TEST(PointQueries, AgreeWithBruteForce) {
    test::Random random(7);
    const int runs = 3000;
    int atStart = 0, atEnd = 0;
    for (int run = 0; run < runs; ++run) {
        const Triangle triangle = random.triangle(1.0f);
        const Segment segment{triangle.p1, triangle.p2};
        const osg::Pnt3f point = random.point(1.0f);
        SCOPED_TRACE(testing::Message() << triangle << " to " << point);
        const DistanceSegmentPoint bySegment(segment, point);
        ASSERT_NEAR(bySegment.getSquaredDistance(), test::squaredDistance(segment, point), 1e-5);
        ASSERT_NEAR(bySegment.getSquaredDistance(), test::squaredDistance(bySegment.getClosestPoint(), point), 1e-5);
        const DistanceTrianglePoint byTriangle(triangle, osg::Vec3f(point));
        ASSERT_NEAR(byTriangle.getSquaredDistance(), test::squaredDistance(triangle, point), 1e-5);
        ASSERT_NEAR(byTriangle.getSquaredDistance(), test::squaredDistance(byTriangle.getClosestPoint(), point), 1e-5);
        atStart += bySegment.getSegmentParameter() == 0.0f;
        atEnd += bySegment.getSegmentParameter() == 1.0f;
    }
    // Too few cases in a region and the agreement would prove nothing about it.
    EXPECT_GT(std::min({atStart, atEnd, runs - atStart - atEnd}), runs / 10);
}

TEST(DistanceSegmentPoint, SegmentOfLengthZeroGivesNaN) {
    const DistanceSegmentPoint query({{1, 1, 1}, {1, 1, 1}}, {0, 0, 0});
    EXPECT_TRUE(test::identical(query.getClosestPoint(), osg::Pnt3f(nan, nan, nan)));
    EXPECT_TRUE(std::isnan(query.getSquaredDistance()) && std::isnan(query.getSegmentParameter()));
}

TEST(DistanceTrianglePoint, FindsTheRegion) {
    const Triangle right{{0, 0, 0}, {4, 0, 0}, {0, 4, 0}}, obtuse{{0, 0, 0}, {4, 0, 0}, {-4, 1, 0}};
    const Triangle obtuseTurned{obtuse.p0, obtuse.p2, obtuse.p1}, point{{1, 1, 1}, {1, 1, 1}, {1, 1, 1}};
    const struct {
        Triangle triangle;
        osg::Vec3f point;
        osg::Pnt3f closest;
        float squaredDistance;
    } rows[] = {
        {right, {1, 2, 3}, {1, 2, 0}, 9},         {right, {-1, -2, 0}, {0, 0, 0}, 5},
        {right, {6, -1, 0}, {4, 0, 0}, 5},        {right, {7, 1, 0}, {4, 0, 0}, 10},
        {right, {-1, 6, 0}, {0, 4, 0}, 5},        {right, {1, 7, 0}, {0, 4, 0}, 10},
        {right, {1, -2, 0}, {1, 0, 0}, 4},        {right, {-2, 1, 0}, {0, 1, 0}, 4},
        {right, {3, 3, 0}, {2, 2, 0}, 2},         {obtuse, {1, -2, 0}, {1, 0, 0}, 4},
        {obtuseTurned, {1, -2, 0}, {1, 0, 0}, 4}, {point, {0, 0, 0}, {nan, nan, nan}, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.triangle << " to " << row.point);
        const DistanceTrianglePoint query(row.triangle, row.point);
        EXPECT_TRUE(test::identical(query.getClosestPoint(), row.closest));
        EXPECT_EQ(query.getSquaredDistance(), row.squaredDistance);
    }
}

} // namespace tesk::measurement
