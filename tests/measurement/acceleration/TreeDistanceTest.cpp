#include <measurement/acceleration/Workers.h>
#include <measurement/acceleration/pairs/OrderedSearch.h>
#include <measurement/acceleration/pairs/TreeDistance.h>
#include <measurement/acceleration/pairs/TrianglePairFilter.h>
#include <measurement/geometry/DistanceTriangleTriangle.h>
#include <measurement/scene/DistanceBoundingVolumeTree.h>

#include <support/HostileMeshes.h>
#include <support/Primitives.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace tesk::measurement {

namespace {

using acceleration::InstructionSet;
using acceleration::LazyTree;
using acceleration::TreeDistance;

constexpr float unbounded = std::numeric_limits<float>::max();
constexpr float infinity = std::numeric_limits<float>::infinity();

acceleration::TriangleMesh viewOf(const test::Mesh& mesh) {
    return {mesh.positions.data(), mesh.indices.data(), static_cast<std::uint32_t>(mesh.indices.size() / 3)};
}

/// What a search comes to.
struct Outcome {
    float squaredDistance = 0.0f;
    osg::Pnt3f point1, point2;
    std::uint64_t nodePairCount = 0, trianglePairCount = 0;
    bool isFromNearPairs = false, isCurtailed = false;
    std::string output;
};

template <class Search, class... Arguments> Outcome search(Arguments&&... arguments) {
    testing::internal::CaptureStdout();
    const Search search(arguments...);
    Outcome outcome{search.getSquaredDistance(),
                    search.getClosestPoint1(),
                    search.getClosestPoint2(),
                    search.getNodePairCount(),
                    search.getTrianglePairCount(),
                    false,
                    false,
                    testing::internal::GetCapturedStdout()};
    if constexpr (std::is_same_v<Search, TreeDistance>) {
        outcome.isFromNearPairs = search.isFromNearPairs();
        outcome.isCurtailed = search.isNearPairsCurtailed();
    }
    return outcome;
}

Outcome searchPlainly(const test::Mesh& mesh1, const test::Mesh& mesh2, float bound) {
    BoundingVolumeTree tree1, tree2;
    for (const Triangle& triangle : test::trianglesOf(mesh1)) tree1.pushTriangle(triangle);
    for (const Triangle& triangle : test::trianglesOf(mesh2)) tree2.pushTriangle(triangle);
    tree1.build();
    tree2.build();
    return search<DistanceBoundingVolumeTree>(tree1, tree2, bound);
}

/// Two meshes as they come, or close-fitting ones: the same, the same a little smaller or elsewhere.
std::array<test::Mesh, 2> hostilePair(test::Random& random) {
    std::array<test::Mesh, 2> meshes{test::hostileMesh(random), test::hostileMesh(random)};
    if (random.chance(0.3f)) {
        meshes[1] = meshes[0];
        const float scale = random.chance(0.5f) ? random.real(0.9f, 1.0f) : 1.0f;
        const osg::Vec3f shift = random.vector(random.chance(0.5f) ? 0.05f : 0.0f);
        for (osg::Pnt3f& position : meshes[1].positions)
            for (osg::UInt32 axis = 0; axis < 3; ++axis) position[axis] = position[axis] * scale + shift[axis];
    }
    // One more, as meshes for searches want it.
    for (test::Mesh& mesh : meshes) mesh.positions.push_back(random.point(9.0f));
    return meshes;
}

/// A finely cut plate, folded into a prism around z perhaps.
test::Mesh facets(test::Random& random) {
    test::Mesh mesh = test::terrain(8 + random.below(200));
    const auto sides = static_cast<float>(random.chance(0.5f) ? 3 + random.below(6) : 0);
    const auto corner = [&](float i) {
        return osg::Vec3f(std::cos(6.28f * i / sides), std::sin(6.28f * i / sides), 0);
    };
    for (osg::Pnt3f& position : mesh.positions) {
        const float turn = 0.5f * (position[0] + 1.0f) * sides, low = std::floor(turn), height = position[1];
        position[2] = 0.0f;
        if (sides == 0.0f) continue;
        position =
            osg::Pnt3f(0.0f, 0.0f, height) + corner(low) * (1.0f - turn + low) + corner(low + 1.0f) * (turn - low);
    }
    return mesh;
}

/// Two meshes of which very many pairs of triangles are equally near: facets that match or are shifted, or so tiny that
/// all distances between them are rounded to few.
std::array<test::Mesh, 2> tiedPair(test::Random& random) {
    const test::Mesh mesh = facets(random);
    std::array<test::Mesh, 2> meshes{mesh, random.chance(0.8f) ? mesh : facets(random)};
    const float inner = random.chance(0.7f) ? 0.25f * static_cast<float>(random.below(5)) : random.real(0.5f, 1.0f);
    osg::Vec3f shift = random.vector(random.chance(0.3f) ? 0.3f : 0.0f);
    if (random.chance(0.5f)) shift[2] += 0.125f;
    for (osg::Pnt3f& p : meshes[1].positions) p = osg::Pnt3f(p[0] * inner, p[1] * inner, p[2]) + shift;

    const bool isTiny = random.chance(0.2f);
    const osg::Vec3f slope = random.vector(isTiny || random.chance(0.5f) ? 0.0f : 1.0f);
    const osg::Vec3f place = random.vector(isTiny || random.chance(0.7f) ? 0.0f : 100.0f);
    const float scale = isTiny ? std::pow(10.0f, random.real(-7.0f, -3.0f)) : 1.0f;
    for (test::Mesh& each : meshes) {
        for (osg::Pnt3f& p : each.positions)
            p = osg::Pnt3f((p[0] + slope[0] * p[1]) * scale, (p[1] + slope[1] * p[2]) * scale,
                           (p[2] + slope[2] * p[0]) * scale) +
                place;
        each.positions.push_back(random.point(9.0f));
    }
    const float height = isTiny ? random.real(0.0f, 3.0f) : 0.0f;
    for (osg::Pnt3f& p : meshes[1].positions) p[2] += height;
    return meshes;
}

void expectSame(const Outcome& actual, const Outcome& expected) {
    EXPECT_TRUE(test::identical(actual.squaredDistance, expected.squaredDistance));
    EXPECT_TRUE(test::identical(actual.point1, expected.point1));
    EXPECT_TRUE(test::identical(actual.point2, expected.point2));
    EXPECT_EQ(actual.output, expected.output);
}

} // namespace

TEST(TrianglePairFilter, LetsThroughWhatTheQueryMayAnswer) {
    test::Random random(21);
    const int runs = test::differentialRuns(20000);
    int kept = 0, filtered = 0;
    for (int run = 0; run < runs && !testing::Test::HasFailure(); ++run) {
        const Triangle first = random.triangle(random.kind(), 1.0f);
        Triangle second = random.triangle(random.kind(), 1.0f);
        if (random.chance(0.2f)) second.p1 = first.p2;
        DistanceTriangleTriangle query({}, {});
        query.calcDistance(first, second);
        const float distance = query.getSquaredDistance();
        for (const float best : {distance, std::nextafter(distance, infinity), 0.5f * distance, unbounded, infinity}) {
            const bool matters = distance < best || distance <= 1.1920929e-07f;
            for (const InstructionSet set : {InstructionSet::baseline, acceleration::getInstructionSet()}) {
                const bool isKept = acceleration::mayMatter(acceleration::PackedTriangle(first),
                                                            acceleration::PackedTriangle(second), best, set);
                EXPECT_TRUE(isKept || !matters) << "run " << run << ": " << first << " to " << second;
                // The query stops where triangles touch, the filter does not.
                EXPECT_TRUE(!isKept || matters || best == infinity) << "run " << run;
                ++(isKept ? kept : filtered);
            }
        }
    }
    EXPECT_GT(std::min(kept, filtered), runs);
}

TEST(TreeDistance, AgreesWithThePlainSearch) {
    test::Random random(22);
    const int runs = test::differentialRuns(1500);
    int found = 0, touching = 0, isLong = 0, fromNearPairs = 0, foundNear = 0, curtailed = 0;
    for (int run = 0; run < runs && !testing::Test::HasFailure(); ++run) {
        SCOPED_TRACE(run);
        const bool isTied = random.chance(0.3f);
        const auto [mesh1, mesh2] = isTied ? tiedPair(random) : hostilePair(random);
        const float bounds[] = {unbounded, random.real(0.0f, 4.0f), infinity, 0.0f, std::nanf("")};
        const float bound = bounds[random.chance(0.7f) ? 0 : random.below(5)];
        const Outcome expected = searchPlainly(mesh1, mesh2, bound);
        const acceleration::ForcedChunks chunks(run % 8 == 0 ? 3 : 1);
        LazyTree tree1(viewOf(mesh1)), tree2(viewOf(mesh2));
        const Outcome ordered = search<TreeDistance>(tree1, tree2, bound, ~std::uint64_t(0), std::size_t(1));
        expectSame(ordered, expected);
        EXPECT_EQ(ordered.nodePairCount, expected.nodePairCount);
        EXPECT_EQ(ordered.trianglePairCount, expected.trianglePairCount);
        // Parts of the trees that an earlier search opened change nothing.
        const std::uint64_t patience = acceleration::OrderedSearch::nodePairEffort * random.below(20);
        // Ties are cut short where few pairs are kept.
        const std::size_t mostNearPairs = random.chance(isTied ? 0.9f : 0.4f) ? 8 + random.below(200) : 16384;
        const Outcome restarted = search<TreeDistance>(tree1, tree2, bound, patience, mostNearPairs);
        expectSame(restarted, expected);
        found += !expected.point1.isZero();
        touching += !expected.output.empty();
        isLong += expected.nodePairCount > 100;
        fromNearPairs += restarted.isFromNearPairs;
        foundNear += restarted.isFromNearPairs && !expected.point1.isZero();
        curtailed += restarted.isFromNearPairs && restarted.isCurtailed;
    }
    EXPECT_GT(std::min({found, touching, isLong, fromNearPairs, foundNear, 2 * curtailed}), runs / 20)
        << found << ' ' << touching << ' ' << isLong << ' ' << fromNearPairs << ' ' << foundNear << ' ' << curtailed;
}

} // namespace tesk::measurement
