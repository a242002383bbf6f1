#include <measurement/geometry/DistanceLineLine.h>
#include <measurement/geometry/DistanceSegmentPoint.h>
#include <measurement/geometry/DistanceSegmentTriangle.h>
#include <measurement/geometry/DistanceTrianglePoint.h>
#include <measurement/geometry/DistanceTriangleTriangle.h>

#include <support/Random.h>

#include <gtest/gtest.h>

#include <cstring>

namespace tesk::measurement {

/// FNV-1a over the bits of results; every NaN counts as the same.
struct Hash {
    std::uint64_t value = 0xcbf29ce484222325u;

    void add(float number) {
        std::uint32_t bits = 0x7fc00000u;
        if (number == number) std::memcpy(&bits, &number, sizeof bits);
        value = (value ^ bits) * 0x100000001b3u;
    }
    void add(const osg::Pnt3f& point) { addAll(point[0], point[1], point[2]); }
    template <class... Results> void addAll(const Results&... results) { (add(results), ...); }
};

/// Searches depend on every bit of these queries, for input of any kind, with every compiler and processor. The values
/// change only together with the written order of operations.
TEST(DistanceQueries, KeepEveryBit) {
    test::Random random(37);
    Hash segmentPoint, trianglePoint, lineLine, segmentTriangle, triangleTriangle;
    DistanceTriangleTriangle byTriangles({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 0, 9}, {1, 0, 9}, {0, 1, 9}});
    for (int run = 0; run < 50000; ++run) {
        const Triangle a = random.triangle(random.kind(), 3.0f);
        Triangle b = random.triangle(random.kind(), 3.0f);
        if (random.chance(0.2f)) b.p1 = a.p2;
        const DistanceSegmentPoint byPoint({a.p0, a.p1}, b.p1);
        segmentPoint.addAll(byPoint.getClosestPoint(), byPoint.getSquaredDistance(), byPoint.getSegmentParameter());
        const DistanceTrianglePoint byPosition(b, osg::Vec3f(a.p0));
        trianglePoint.addAll(byPosition.getClosestPoint(), byPosition.getSquaredDistance());
        const DistanceLineLine byLine({a.p0, a.p1 - a.p0}, {b.p0, b.p2 - b.p1});
        lineLine.addAll(byLine.getSquaredDistance(), byLine.getLineParameter0(), byLine.getLineParameter1());
        const DistanceSegmentTriangle byEdge({a.p0, a.p1}, b);
        segmentTriangle.addAll(byEdge.getClosestSegmentPoint(), byEdge.getClosestTrianglePoint(),
                               byEdge.getSquaredDistance(), byEdge.getSegmentParameter());
        byTriangles.calcDistance(a, b);
        triangleTriangle.addAll(byTriangles.getClosestPoint1(), byTriangles.getClosestPoint2(),
                                byTriangles.getSquaredDistance());
    }
    EXPECT_EQ(segmentPoint.value, 0xaad599f9c068eec1u);
    EXPECT_EQ(trianglePoint.value, 0x0185e36579e80b7fu);
    EXPECT_EQ(lineLine.value, 0x6cc95b0c86a5cc7du);
    EXPECT_EQ(segmentTriangle.value, 0xe4ef4ca429a4835au);
    EXPECT_EQ(triangleTriangle.value, 0x08c9dc08dafd185eu);
}

} // namespace tesk::measurement
