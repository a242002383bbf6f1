#include <measurement/geometry/DistanceLineLine.h>
#include <measurement/geometry/DistanceLineSegment.h>
#include <measurement/geometry/DistanceLineTriangle.h>

#include <support/Primitives.h>

#include <cmath>

namespace tesk::measurement {

static const float nan = std::numeric_limits<float>::quiet_NaN();

TEST(DistanceLineLine, KeepsOnlyThePointOnTheSecondLine) {
    const Line line{{1, 2, 3}, {2, 0, 0}};
    const struct {
        const char* place;
        Line second;
        float lineParameter0, lineParameter1, squaredDistance;
        osg::Pnt3f closestPoint0;
    } rows[] = {
        {"skew", {{2, 3, 5}, {1, 1, 0}}, 0.0f, -1.0f, 4.0f, {1, 2, 5}},
        {"parallel", {{7, 2, 5}, {-1, 0, 0}}, 3.0f, 0.0f, 4.0f, {7, 2, 5}},
        {"at right angles", {{2, 3, 5}, {0, 1, 0}}, 0.5f, nan, nan, {nan, nan, nan}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.place);
        const DistanceLineLine query(line, row.second);
        EXPECT_EQ(query.getLineParameter0(), row.lineParameter0);
        EXPECT_TRUE(test::identical(query.getLineParameter1(), row.lineParameter1));
        EXPECT_TRUE(test::identical(query.getSquaredDistance(), row.squaredDistance));
        EXPECT_TRUE(test::identical(query.getClosestPoint0(), row.closestPoint0));
        EXPECT_TRUE(test::identical(query.getClosestPoint1(), osg::Pnt3f(0, 0, 0)));
    }
}

TEST(DistanceLineSegment, SegmentParameterFollowsTheLinesOffsetAlone) {
    const Segment slanted{{0, 0, 0}, {2, 1, 0}};
    const struct {
        const char* place;
        Line line;
        Segment segment;
        float lineParameter, segmentParameter, squaredDistance;
    } rows[] = {
        // The nearest point of the slanted segment is its start, wherever the line's origin lies.
        {"within", {{-0.5f, 0, 1}, {1, 0, 0}}, slanted, 1.5f, 0.5f, 1.25f},
        {"beyond the end", {{-2, 0, 1}, {1, 0, 0}}, slanted, 4.0f, 1.0f, 2.0f},
        {"before the start", {{1, 0, 1}, {1, 0, 0}}, slanted, -1.0f, 0.0f, 1.0f},
        {"through the middle", {{1, 0, 0}, {0, 1, 0}}, {{0, 0, 0}, {2, 0, 0}}, -0.0f, -0.0f, 1.0f},
        {"parallel", {{0, 0, 2}, {2, 0, 0}}, {{3, 0, 0}, {5, 0, 0}}, 1.5f, 0.0f, 4.0f},
        {"line without direction", {{0, 0, 2}, {0, 0, 0}}, slanted, nan, 0.0f, nan},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.place);
        const DistanceLineSegment query(row.line, row.segment);
        EXPECT_TRUE(test::identical(query.getLineParameter(), row.lineParameter));
        EXPECT_TRUE(test::identical(query.getSegmentParameter(), row.segmentParameter));
        EXPECT_TRUE(test::identical(query.getSquaredDistance(), row.squaredDistance));
    }
}

TEST(DistanceLineTriangle, MissesAreMeasuredByTheFirstOfTheNearestEdges) {
    DistanceLineTriangle query({{9, 9, 9}, {0, 0, 1}}, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
    const struct {
        const char* place;
        Line line;
        osg::Pnt3f onTriangle;
        float squaredDistance, lineParameter;
    } rows[] = {
        {"pierces", {{1, 2, 3}, {0, 0, -2}}, {1, 2, 0}, 0.0f, 1.5f},
        {"pierces a vertex", {{0, 4, 3}, {0, 0, -1}}, {0, 4, 0}, 0.0f, 3.0f},
        {"start of p0-p1 before start of p1-p2", {{2, -1, 0}, {0, 0, 1}}, {0, 0, 0}, 5.0f, 0.0f},
        {"start of p2-p0 before start of p0-p1", {{-1, 2, 0}, {0, 0, 1}}, {0, 4, 0}, 5.0f, 0.0f},
        {"above the face, parallel to it", {{1, 1, 2}, {1, 0, 0}}, {0, 0, 0}, 5.0f, -1.0f},
        {"nothing found, points stay", {{5, 5, 5}, {0, 0, 0}}, {0, 0, 0}, std::numeric_limits<float>::max(), nan},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.place);
        query.calcDistance(row.line, {{0, 0, 0}, {4, 0, 0}, {0, 4, 0}});
        EXPECT_EQ(query.getSquaredDistance(), row.squaredDistance);
        EXPECT_TRUE(test::identical(std::abs(query.getLineParameter()), std::abs(row.lineParameter)));
        EXPECT_TRUE(test::identical(query.getClosestTrianglePoint(), row.onTriangle));
    }
    EXPECT_TRUE(test::identical(query.getClosestLinePoint(), osg::Pnt3f(0, 1, 2)));
}

} // namespace tesk::measurement
