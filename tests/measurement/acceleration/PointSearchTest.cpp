#include <measurement/acceleration/PointSearch.h>
#include <measurement/scene/PointObjectDistanceCalculator.h>
#include <measurement/scene/detail/PointIndex.h>

#include "PlainPointObject.h"

#include <support/HostileMeshes.h>
#include <support/Primitives.h>

#include <algorithm>
#include <cmath>

namespace tesk::measurement {

namespace {

using namespace acceleration;

constexpr InstructionSet allSets[] = {InstructionSet::baseline, InstructionSet::avx2};

bool isUsable(InstructionSet set) { return set == InstructionSet::baseline || set == getInstructionSet(); }

/// A vertex, a place near one, one anywhere; rarely one far off or not a number.
osg::Pnt3f pointFor(test::Random& random, const std::vector<osg::Pnt3f>& positions) {
    if (random.chance(0.02f)) return random.point(random.chance(0.5f) ? 1e6f : 1e19f);
    if (random.chance(0.02f)) return random.triangle(test::Kind::notFinite, 1.0f).p0;
    if (positions.empty() || random.chance(0.1f)) return random.point(5.0f);
    const osg::Pnt3f vertex = positions[random.below(static_cast<std::uint32_t>(positions.size()))];
    return random.chance(0.2f) ? vertex : vertex + random.vector(random.chance(0.5f) ? 0.05f : 1.0f);
}

/// A hostile mesh, sometimes as small or as large as single precision bears, sometimes with its triangles mixed up.
test::Mesh meshFor(test::Random& random) {
    test::Mesh mesh = test::hostileMesh(random);
    if (random.chance(0.1f)) {
        const float scale = std::pow(10.0f, random.real(-30.0f, 30.0f));
        for (osg::Pnt3f& position : mesh.positions) position = osg::Pnt3f(osg::Vec3f(position) * scale);
    }
    if (random.chance(0.3f)) {
        for (std::size_t i = mesh.indices.size() / 3; i > 1; --i) {
            const std::size_t other = random.below(static_cast<std::uint32_t>(i));
            std::swap_ranges(&mesh.indices[3 * i - 3], &mesh.indices[3 * i - 3] + 3, &mesh.indices[3 * other]);
        }
    }
    return mesh;
}

/// Strictly smaller values win, in order.
NearestPrimitive findPlainly(const PrimitiveArray<Triangle>& triangles, const osg::Pnt3f& point) {
    NearestPrimitive nearest;
    for (std::size_t i = 0; i < triangles.count; ++i) {
        const DistanceTrianglePoint query({triangles.corner(i, 0), triangles.corner(i, 1), triangles.corner(i, 2)},
                                          osg::Vec3f(point));
        if (query.getSquaredDistance() < nearest.squaredDistance && isValid(query.getClosestPoint()))
            nearest = {query.getSquaredDistance(), i, query.getClosestPoint(), true};
    }
    return nearest;
}

NearestPrimitive findPlainly(const PrimitiveArray<Segment>& segments, const osg::Pnt3f& point) {
    NearestPrimitive nearest;
    for (std::size_t i = 0; i < segments.count; ++i) {
        const DistanceSegmentPoint query({segments.corner(i, 0), segments.corner(i, 1)}, point);
        if (query.getSquaredDistance() < nearest.squaredDistance)
            nearest = {query.getSquaredDistance(), i, query.getClosestPoint(), true};
    }
    return nearest;
}

void expectSame(const NearestPrimitive& actual, const NearestPrimitive& expected) {
    EXPECT_EQ(actual.isFound, expected.isFound);
    EXPECT_EQ(actual.rank, expected.rank);
    EXPECT_TRUE(test::identical(actual.squaredDistance, expected.squaredDistance));
    EXPECT_TRUE(test::identical(actual.point, expected.point));
}

struct Counts {
    int found = 0, sorted = 0, tied = 0;
};

/// Searches of all sorts for points that follow each other.
template <class Primitive>
void compareSearches(test::Random& random, const PrimitiveArray<Primitive>& primitives,
                     const std::vector<osg::Pnt3f>& positions, Counts& counts) {
    PointTree<Primitive> tree(primitives);
    osg::Pnt3f point = pointFor(random, positions);
    NearestPrimitive last;
    for (int query = 0; query < 12; ++query) {
        if (random.chance(0.3f)) point = pointFor(random, positions);
        const NearestPrimitive expected = findPlainly(primitives, point);
        NearestPrimitive scanned, searched, seeded;
        scan(primitives, point, 0, scanned);
        expectSame(scanned, expected);
        tree.search(point, 0, searched);
        expectSame(searched, expected);
        if (last.isFound) measure(primitives, last.rank, point, 0, seeded);
        counts.tied +=
            seeded.isFound && seeded.squaredDistance == expected.squaredDistance && seeded.rank != expected.rank;
        tree.search(point, 0, seeded);
        expectSame(seeded, expected);
        counts.found += expected.isFound;
        last = expected;
        point += random.vector(0.02f);
    }
    counts.sorted += tree.isSorted();
}

} // namespace

TEST(PointDistanceFilter, ShowsWhatIsNear) {
    test::Random random(31);
    const int runs = test::differentialRuns(4000);
    int near = 0, far = 0, excluded = 0;
    for (int run = 0; run < runs && !testing::Test::HasFailure(); ++run) {
        SCOPED_TRACE(run);
        const float scale = random.chance(0.8f) ? 1.0f : std::pow(10.0f, random.real(-30.0f, 30.0f));
        PrimitiveLanes<Triangle> triangles;
        PrimitiveLanes<Segment> segments;
        BoxLanes boxes;
        std::vector<DistanceTrianglePoint> toTriangle;
        std::vector<DistanceSegmentPoint> toSegment;
        const osg::Pnt3f point = osg::Pnt3f(osg::Vec3f(random.point(2.0f)) * scale);
        for (int lane = 0; lane < 8; ++lane) {
            Triangle t = random.triangle(random.kind(), 1.0f);
            for (osg::Pnt3f* p : {&t.p0, &t.p1, &t.p2}) *p = osg::Pnt3f(osg::Vec3f(*p) * scale);
            if (random.chance(0.1f)) t.p0 = point;
            const QuadBox box = quadBoxOf(toQuad(t.p0), toQuad(t.p1), toQuad(t.p2));
            boxes.low.set(lane, {box.min[0], box.min[1], box.min[2]});
            boxes.high.set(lane, {box.max[0], box.max[1], box.max[2]});
            for (int which = 0; which < 3; ++which) triangles.corners[which].set(lane, (&t.p0)[which]);
            for (int which = 0; which < 2; ++which) segments.corners[which].set(lane, (&t.p0)[which]);
            toTriangle.emplace_back(t, osg::Vec3f(point));
            toSegment.emplace_back(Segment{t.p0, t.p1}, point);
        }
        for (int lane = 0; lane < 8; ++lane) {
            const float best =
                random.chance(0.5f) ? toTriangle[0].getSquaredDistance() : toSegment[0].getSquaredDistance();
            for (const InstructionSet set : allSets) {
                if (!isUsable(set)) continue;
                float bounds[8];
                const bool isTriangle = findNear(triangles, point, best, set) >> lane & 1;
                const bool isSegment = findNear(segments, point, best, set) >> lane & 1;
                const bool isBox = findNear(boxes, point, best, set, bounds) >> lane & 1;
                const float distance = toTriangle[lane].getSquaredDistance();
                const bool isValidPoint = isValid(toTriangle[lane].getClosestPoint());
                EXPECT_EQ(isTriangle, distance <= best && (isTriangle || isValidPoint)) << lane;
                EXPECT_EQ(isSegment, toSegment[lane].getSquaredDistance() <= best) << lane;
                EXPECT_TRUE(isBox || !(isValidPoint && distance <= best)) << lane;
                EXPECT_FALSE(isValidPoint && bounds[lane] > distance) << lane;
                ++(isTriangle ? near : far);
                excluded += !isBox;
            }
        }
    }
    EXPECT_GT(std::min({near, far, excluded}), runs) << near << ' ' << far << ' ' << excluded;
}

TEST(PointTree, AndScanAgreeWithThePlainSearch) {
    test::Random random(32);
    const int runs = test::differentialRuns(3000);
    Counts triangles, segments;
    for (int run = 0; run < runs && !testing::Test::HasFailure(); ++run) {
        SCOPED_TRACE(run);
        const test::Mesh mesh = meshFor(random);
        const auto& [positions, corners] = mesh;
        const std::size_t count = positions.size();
        compareSearches<Triangle>(random, {positions.data(), count, corners.data(), corners.size() / 3}, positions,
                                  triangles);
        compareSearches<Segment>(random, {positions.data(), count, corners.data(), corners.size() / 2}, positions,
                                 segments);
    }
    for (const Counts& counts : {triangles, segments})
        EXPECT_GT(std::min({counts.found / 10, counts.sorted, counts.tied}), runs / 20)
            << counts.found << ' ' << counts.sorted << ' ' << counts.tied;
}

TEST(PointObjectDistanceCalculator, AndIndexAgreeWithThePlainWalk) {
    test::Random random(33);
    const int runs = test::differentialRuns(1500);
    int found = 0, notFirst = 0, kept = 0;
    for (int run = 0; run < runs && !testing::Test::HasFailure(); ++run) {
        SCOPED_TRACE(run);
        test::SceneNodes parts;
        std::vector<osg::Pnt3f> positions;
        test::Mesh mesh;
        for (std::uint32_t part = random.below(4); part > 0; --part) {
            if (random.chance(0.7f)) mesh = meshFor(random);
            positions.insert(positions.end(), mesh.positions.begin(), mesh.positions.end());
            std::vector<Segment> segments;
            for (std::size_t i = 2; i < mesh.indices.size() && i < 60; i += 2)
                segments.push_back({mesh.positions[mesh.indices[i]], mesh.positions[mesh.indices[i - 1]]});
            test::SceneNode node = random.chance(0.7f) ? test::geometry(mesh) : test::lines(segments);
            // Of the same geometry as the part before, in another place.
            if (!parts.empty() && random.chance(0.2f)) node->setCore(parts.back()->getChild(0)->getCore());
            const float factors[] = {1.0f, 1.0f, 0.1f, 3.0f, 0.0f};
            osg::Matrix matrix = test::scaled(factors[random.below(5)]);
            if (random.chance(0.5f)) matrix[3] = osg::Vec4f(random.real(-1, 1), random.real(-1, 1), 0.0f, 1.0f);
            if (random.chance(0.3f)) matrix[0][1] = random.real(-1.0f, 1.0f);
            parts.push_back(test::transform(matrix, {node}));
        }
        const test::SceneNode object = test::group(parts);
        test::PlainPointObject plain;
        PointObjectDistanceCalculator calculator;
        detail::PointIndex index(object);
        osg::Pnt3f point = pointFor(random, positions);
        for (int query = 0; query < 10; ++query) {
            plain.calc(point, object);
            calculator.calc(point, object);
            index.calc(point);
            EXPECT_TRUE(calculator.getNode() == plain.node);
            EXPECT_TRUE(test::identical(calculator.getPoint(), plain.point));
            EXPECT_TRUE(test::identical(index.getPoint(), plain.point));
            found += plain.node != osg::NullFC;
            kept += plain.node == osg::NullFC && !parts.empty();
            notFirst += plain.node != osg::NullFC && plain.node != parts.front()->getChild(0);
            point = random.chance(0.2f) ? pointFor(random, positions) : point + random.vector(0.02f);
        }
    }
    EXPECT_GT(std::min({found / 10, notFirst, kept}), runs / 20) << found << ' ' << notFirst << ' ' << kept;
}

} // namespace tesk::measurement
