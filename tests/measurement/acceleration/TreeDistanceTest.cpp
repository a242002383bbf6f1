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
    bool isFromNearPairs = false;
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
                    testing::internal::GetCapturedStdout()};
    if constexpr (std::is_same_v<Search, TreeDistance>) outcome.isFromNearPairs = search.isFromNearPairs();
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
    int found = 0, touching = 0, isLong = 0, fromNearPairs = 0, foundNear = 0;
    for (int run = 0; run < runs && !testing::Test::HasFailure(); ++run) {
        SCOPED_TRACE(run);
        const auto [mesh1, mesh2] = hostilePair(random);
        const float bounds[] = {unbounded, random.real(0.0f, 4.0f), infinity, 0.0f, std::nanf("")};
        const float bound = bounds[random.chance(0.7f) ? 0 : random.below(5)];
        const Outcome expected = searchPlainly(mesh1, mesh2, bound);
        const acceleration::ForcedChunks chunks(run % 8 == 0 ? 3 : 1);
        LazyTree tree1(viewOf(mesh1)), tree2(viewOf(mesh2));
        const Outcome ordered = search<TreeDistance>(tree1, tree2, bound, ~std::uint64_t(0));
        expectSame(ordered, expected);
        EXPECT_EQ(ordered.nodePairCount, expected.nodePairCount);
        EXPECT_EQ(ordered.trianglePairCount, expected.trianglePairCount);
        // Parts of the trees that an earlier search opened change nothing.
        const Outcome restarted =
            search<TreeDistance>(tree1, tree2, bound, acceleration::OrderedSearch::nodePairEffort * random.below(20));
        expectSame(restarted, expected);
        found += !expected.point1.isZero();
        touching += !expected.output.empty();
        isLong += expected.nodePairCount > 100;
        fromNearPairs += restarted.isFromNearPairs;
        foundNear += restarted.isFromNearPairs && !expected.point1.isZero();
    }
    EXPECT_GT(std::min({found, touching, isLong, fromNearPairs, foundNear}), runs / 20)
        << found << ' ' << touching << ' ' << isLong << ' ' << fromNearPairs << ' ' << foundNear;
}

} // namespace tesk::measurement
