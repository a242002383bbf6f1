#include <measurement/acceleration/Workers.h>
#include <measurement/acceleration/points/PointSearch.h>
#include <measurement/acceleration/points/SideCodes.h>
#include <measurement/geometry/DistanceSegmentPoint.h>
#include <measurement/geometry/DistanceTrianglePoint.h>
#include <measurement/geometry/Validity.h>
#include <measurement/scene/PointObjectDistanceCalculator.h>
#include <measurement/scene/detail/GeometryPrimitives.h>
#include <measurement/scene/detail/PointIndex.h>
#include <measurement/scene/detail/SubtreeWalk.h>

#include <support/HostileMeshes.h>
#include <support/Primitives.h>

#include <algorithm>
#include <cmath>

namespace tesk::measurement {

namespace {

using namespace acceleration;

/// A vertex, a place near one or somewhere beside two, anywhere; rarely far off or not a number.
osg::Pnt3f pointFor(test::Random& random, const std::vector<osg::Pnt3f>& positions) {
    if (random.chance(0.02f)) return random.point(random.chance(0.5f) ? 1e6f : 1e19f);
    if (random.chance(0.02f)) return random.triangle(test::Kind::notFinite, 1.0f).p0;
    if (positions.empty() || random.chance(0.1f)) return random.point(5.0f);
    const auto vertex = [&] { return positions[random.below(static_cast<std::uint32_t>(positions.size()))]; };
    const osg::Pnt3f place = vertex();
    if (random.chance(0.3f)) return place + (vertex() - place) * random.real(-1.0f, 2.0f);
    return random.chance(0.2f) ? place : place + random.vector(random.chance(0.5f) ? 0.05f : 1.0f);
}

/// Mostly 1, otherwise one whose squares are about as small or as large as single precision bears.
float extremeScale(test::Random& random) {
    if (random.chance(0.8f)) return 1.0f;
    return std::pow(10.0f, random.chance(0.5f) ? random.real(-24.0f, -18.0f) : random.real(17.5f, 20.0f));
}

void shuffle(test::Random& random, test::Mesh& mesh) {
    for (std::size_t i = mesh.indices.size() / 3; i > 1; --i) {
        const std::size_t other = random.below(static_cast<std::uint32_t>(i));
        std::swap_ranges(&mesh.indices[3 * i - 3], &mesh.indices[3 * i - 3] + 3, &mesh.indices[3 * other]);
    }
}

/// A hostile mesh, sometimes of an extreme size, sometimes with its triangles mixed up.
test::Mesh meshFor(test::Random& random) {
    test::Mesh mesh = test::hostileMesh(random);
    const float scale = extremeScale(random);
    for (osg::Pnt3f& position : mesh.positions) position = osg::Pnt3f(osg::Vec3f(position) * scale);
    if (random.chance(0.3f)) shuffle(random, mesh);
    return mesh;
}

/// Looks at primitives in order; a strictly smaller value wins.
struct PlainSearch : NearestPrimitive {
    osg::Pnt3f query;

    explicit PlainSearch(const osg::Pnt3f& queryPoint) : query(queryPoint) {}

    void look(std::uint64_t number, const Triangle& triangle) {
        const DistanceTrianglePoint answer(triangle, osg::Vec3f(query));
        if (isValid(answer.getClosestPoint())) keep(number, answer);
    }
    void look(std::uint64_t number, const Segment& segment) { keep(number, DistanceSegmentPoint(segment, query)); }
    template <class Answer> void keep(std::uint64_t number, const Answer& answer) {
        if (!(answer.getSquaredDistance() < squaredDistance)) return;
        static_cast<NearestPrimitive&>(*this) = {answer.getSquaredDistance(), number, answer.getClosestPoint(), true};
    }
};

Triangle get(const PrimitiveArray<Triangle>& all, std::size_t i) {
    return {all.corner(i, 0), all.corner(i, 1), all.corner(i, 2)};
}
Segment get(const PrimitiveArray<Segment>& all, std::size_t i) { return {all.corner(i, 0), all.corner(i, 1)}; }

template <class Primitive>
NearestPrimitive findPlainly(const PrimitiveArray<Primitive>& primitives, const osg::Pnt3f& point) {
    PlainSearch search(point);
    for (std::size_t i = 0; i < primitives.count; ++i) search.look(i, get(primitives, i));
    return search;
}

/// What PointObjectDistanceCalculator finds.
struct PlainPointObject {
    osg::Pnt3f point{0.0f, 0.0f, 0.0f};
    osg::NodePtr node;

    void calc(const osg::Pnt3f& query, const osg::NodePtr& object) {
        PlainSearch search(query);
        node = osg::NullFC;
        detail::visitSubtree(object, [&](const osg::NodePtr& candidate) {
            const osg::GeometryPtr geometry = osg::GeometryPtr::dcast(candidate->getCore());
            if (geometry == osg::NullFC) return;
            const osg::Matrix toWorld = candidate->getToWorld();
            osg::Matrix toLocal = toWorld;
            toLocal.invert();
            toLocal.multMatrixPnt(query, search.query);
            search.isFound = false;
            detail::forEachTriangle(geometry, [&](const Triangle& triangle) { search.look(0, triangle); });
            detail::forEachLine(geometry, [&](const Segment& segment) { search.look(0, segment); });
            if (!search.isFound) return;
            node = candidate;
            toWorld.multMatrixPnt(search.point, point);
        });
    }
};

void expectSame(const NearestPrimitive& actual, const NearestPrimitive& expected) {
    EXPECT_EQ(actual.isFound, expected.isFound);
    EXPECT_EQ(actual.rank, expected.rank);
    EXPECT_TRUE(test::identical(actual.squaredDistance, expected.squaredDistance));
    EXPECT_TRUE(test::identical(actual.point, expected.point));
}

struct Counts {
    int found = 0, sorted = 0, tied = 0;
};

template <class Primitive> PrimitiveArray<Primitive> arrayOf(const test::Mesh& mesh) {
    return {mesh.positions.data(), mesh.positions.size(), mesh.indices.data(),
            mesh.indices.size() / cornerCount<Primitive>};
}

/// Searches of all sorts for points that follow each other.
template <class Primitive> void compareSearches(test::Random& random, const test::Mesh& mesh, Counts& counts) {
    const PrimitiveArray<Primitive> primitives = arrayOf<Primitive>(mesh);
    PointTree<Primitive> tree(primitives);
    osg::Pnt3f point = pointFor(random, mesh.positions);
    NearestPrimitive last;
    for (int query = 0; query < 12; ++query) {
        if (random.chance(0.3f)) point = pointFor(random, mesh.positions);
        const NearestPrimitive expected = findPlainly(primitives, point);
        NearestPrimitive scanned, searched, seeded;
        const ForcedChunks chunks(random.chance(0.1f) ? 3 : 1);
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

TEST(PointDistanceFilter, ShowsTheSameWithAllInstructionSets) {
    test::Random random(31);
    const int runs = test::differentialRuns(4000);
    int mixed = 0;
    for (int run = 0; run < runs && !testing::Test::HasFailure(); ++run) {
        const float scale = extremeScale(random);
        const auto place = [scale](const osg::Pnt3f& p) { return osg::Pnt3f(osg::Vec3f(p) * scale); };
        const osg::Pnt3f point = place(random.point(2.0f));
        PrimitiveLanes<Triangle> triangles;
        PrimitiveLanes<Segment> segments;
        BoxLanes boxes;
        for (int lane = 0; lane < 8; ++lane) {
            const Triangle triangle = random.triangle(random.kind(), 1.0f);
            for (int i = 0; i < 3; ++i) triangles.corners[i].set(lane, place((&triangle.p0)[i]));
            for (int i = 0; i < 2; ++i) segments.corners[i].set(lane, place((&triangle.p0)[i]));
            boxes.low.set(lane, place(triangle.p0));
            boxes.high.set(lane, place(triangle.p0 + random.vector(1.0f)));
        }
        const float best = random.real(0.0f, 4.0f) * scale * scale;
        const InstructionSet baseline = InstructionSet::baseline, widest = getInstructionSet();
        float bounds[8], baselineBounds[8];
        const unsigned near = findNear(triangles, point, best, widest);
        EXPECT_EQ(near, findNear(triangles, point, best, baseline)) << run;
        EXPECT_EQ(findNear(segments, point, best, widest), findNear(segments, point, best, baseline)) << run;
        EXPECT_EQ(findNear(boxes, point, best, widest, bounds), findNear(boxes, point, best, baseline, baselineBounds));
        for (int lane = 0; lane < 8; ++lane) EXPECT_TRUE(test::identical(bounds[lane], baselineBounds[lane])) << run;
        mixed += near != 0 && near != 255;
    }
    EXPECT_GT(mixed, runs / 10);
}

TEST(SideCodes, LeaveOutOnlyWhatIsFartherThanTheBest) {
    test::Random random(35);
    const int runs = test::differentialRuns(4000);
    int leftOut = 0, near = 0, close = 0;
    for (int run = 0; run < runs && !testing::Test::HasFailure(); ++run) {
        const test::Mesh mesh = meshFor(random);
        const PrimitiveArray<Triangle> triangles = arrayOf<Triangle>(mesh);
        const osg::Pnt3f point = pointFor(random, mesh.positions);
        const float best =
            findPlainly(triangles, point).squaredDistance * (random.chance(0.3f) ? 1.0f : random.real(0.3f, 3.0f));
        const SideCodes codes(mesh.positions.data(), mesh.positions.size(), point, best);
        if (!codes.areThere()) continue;
        std::vector<std::uint32_t> numbers(triangles.count);
        numbers.resize(codes.findNear<3>(mesh.indices.data(), 0, triangles.count, numbers.data()));
        for (std::uint32_t i = 0; i < triangles.count; ++i) {
            if (std::binary_search(numbers.begin(), numbers.end(), i)) continue;
            const DistanceTrianglePoint answer(get(triangles, i), osg::Vec3f(point));
            EXPECT_TRUE(answer.getSquaredDistance() > best || !isValid(answer.getClosestPoint())) << run << ' ' << i;
            close += answer.getSquaredDistance() < 1.2f * best;
            ++leftOut;
        }
        near += static_cast<int>(numbers.size());
    }
    EXPECT_GT(std::min({leftOut / 10, near / 10, close}), runs / 10) << leftOut << ' ' << near << ' ' << close;
}

TEST(PointTree, AndScanAgreeWithThePlainSearch) {
    test::Random random(32);
    const int runs = test::differentialRuns(3000);
    Counts triangles, segments;
    for (int run = 0; run < runs && !testing::Test::HasFailure(); ++run) {
        SCOPED_TRACE(run);
        const test::Mesh mesh = meshFor(random);
        compareSearches<Triangle>(random, mesh, triangles);
        compareSearches<Segment>(random, mesh, segments);
    }
    for (const Counts& counts : {triangles, segments})
        EXPECT_GT(std::min({counts.found / 10, counts.sorted, counts.tied}), runs / 20)
            << counts.found << ' ' << counts.sorted << ' ' << counts.tied;
}

TEST(PointTree, SortsAtOnceWhatIsScattered) {
    test::Random random(34);
    for (const bool isScattered : {false, true}) {
        test::Mesh mesh = test::sphere(20'000);
        if (isScattered) shuffle(random, mesh);
        EXPECT_EQ(PointTree<Triangle>(arrayOf<Triangle>(mesh)).isSorted(), isScattered);
        Counts counts;
        compareSearches<Triangle>(random, mesh, counts);
    }
}

TEST(PointObjectDistanceCalculator, AndIndexAgreeWithThePlainWalk) {
    test::Random random(33);
    const int runs = test::differentialRuns(1500);
    int found = 0, notFirst = 0, kept = 0, sorted = 0;
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
            test::SceneNode node = random.chance(0.2f)   ? test::hostileGeometry(random)
                                   : random.chance(0.7f) ? test::geometry(mesh)
                                                         : test::lines(segments);
            // Of the same geometry as the part before, in another place.
            if (!parts.empty() && random.chance(0.2f)) node->setCore(parts.back()->getChild(0)->getCore());
            const float factors[] = {1.0f, 1.0f, 0.1f, 3.0f, 0.0f};
            osg::Matrix matrix = test::scaled(factors[random.below(5)]);
            if (random.chance(0.5f)) matrix[3] = osg::Vec4f(random.real(-1, 1), random.real(-1, 1), 0.0f, 1.0f);
            if (random.chance(0.3f)) matrix[0][1] = random.real(-1.0f, 1.0f);
            parts.push_back(test::transform(matrix, {node}));
        }
        const test::SceneNode object = test::group(parts);
        PlainPointObject plain;
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
        sorted += index.countTrees().sorted > 0;
    }
    EXPECT_GT(std::min({found / 10, notFirst, kept, sorted}), runs / 20)
        << found << ' ' << notFirst << ' ' << kept << ' ' << sorted;
}

} // namespace tesk::measurement
