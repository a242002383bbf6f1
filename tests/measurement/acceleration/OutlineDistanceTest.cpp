#include <measurement/acceleration/outlines/OutlineDistance.h>
#include <measurement/scene/DistanceBoundingVolumeTree.h>

#include <support/HostileMeshes.h>
#include <support/Primitives.h>

#include <algorithm>

namespace tesk::measurement {

namespace {

constexpr float unbounded = 3.4028235e38f;

/// Edges of a hostile mesh, some shrunk to a point or nearly so; some lie on the object.
std::vector<Segment> createOutline(test::Random& random, const test::Mesh& object) {
    const test::Mesh mesh = random.chance(0.1f) && !object.indices.empty() ? object : test::hostileMesh(random);
    const float shrinking = random.chance(0.3f) ? 0.3f : 0.01f;
    std::vector<Segment> outline;
    for (const Triangle& triangle : test::trianglesOf(mesh)) {
        Segment segment{triangle.p0, triangle.p1};
        if (random.chance(shrinking)) segment.end = segment.start + random.vector(random.chance(0.5f) ? 0.0f : 1e-8f);
        outline.push_back(segment);
    }
    if (outline.empty() || random.chance(0.2f)) outline.push_back(random.segment(4.0f));
    return outline;
}

} // namespace

TEST(SegmentFilter, IsTheSameForAllInstructionSets) {
    using acceleration::InstructionSet;
    test::Random random(25);
    for (int run = test::differentialRuns(5000); run > 0; --run) {
        acceleration::PrimitiveLanes<Triangle> triangles;
        acceleration::BlurredBoxLanes boxes;
        for (int lane = 0; lane < 8; ++lane) {
            const Triangle triangle = random.triangle(random.kind(), 1.0f);
            triangles.corners[0].set(lane, triangle.p0);
            triangles.corners[1].set(lane, triangle.p1);
            triangles.corners[2].set(lane, triangle.p2);
            const osg::Pnt3f corners[] = {triangle.p0, triangle.p1, triangle.p2, {}};
            const acceleration::BlurredBox box{acceleration::quadBoxOf(acceleration::toQuad(corners[0]),
                                                                       acceleration::toQuad(corners[1]),
                                                                       acceleration::toQuad(corners[2])),
                                               acceleration::calcBlur(triangle)};
            boxes.set(static_cast<std::size_t>(lane), box);
        }
        const Segment segment = random.segment(2.0f);
        const acceleration::SearchReach reach{random.real(0.0f, 9.0f), 4.0f};
        const auto first = boxes.get(random.below(8));
        float expected[2][8]{}, actual[2][8]{};
        for (const float blur : {1.0f, 1e6f}) {
            const auto best = acceleration::getInstructionSet();
            EXPECT_EQ(acceleration::findNear(triangles, segment, blur, reach, InstructionSet::baseline, expected[0]),
                      acceleration::findNear(triangles, segment, blur, reach, best, actual[0]));
            EXPECT_EQ(acceleration::findNear(boxes, first, reach, InstructionSet::baseline, expected[1]),
                      acceleration::findNear(boxes, first, reach, best, actual[1]));
            for (int lane = 0; lane < 8; ++lane)
                for (const int which : {0, 1})
                    ASSERT_TRUE(test::identical(actual[which][lane], expected[which][lane])) << run;
        }
    }
}

TEST(OutlineDistance, AgreesWithThePlainSearch) {
    test::Random random(24);
    const int runs = test::differentialRuns(600);
    int found = 0, touching = 0, near = 0, others = 0;
    for (int run = 0; run < runs && !testing::Test::HasFailure(); ++run) {
        test::Mesh object = test::hostileMesh(random);
        const auto triangleCount = static_cast<std::uint32_t>(object.indices.size() / 3);
        BoundingVolumeTree objectTree;
        for (const Triangle& triangle : test::trianglesOf(object)) objectTree.pushTriangle(triangle);
        objectTree.build();
        object.positions.push_back(random.point(9.0f));
        acceleration::OutlineDistance search({object.positions.data(), object.indices.data(), triangleCount});
        // What earlier outlines leave behind changes nothing.
        for (int sample = 0; sample < 3; ++sample) {
            SCOPED_TRACE(testing::Message() << "run " << run << ", outline " << sample);
            const std::vector<Segment> outline = createOutline(random, object);
            testing::internal::CaptureStdout();
            search.calcDistance(outline);
            const std::string output = testing::internal::GetCapturedStdout();

            BoundingVolumeTree outlineTree;
            outlineTree.build(std::list<Segment>(outline.begin(), outline.end()));
            testing::internal::CaptureStdout();
            const DistanceBoundingVolumeTree expected(outlineTree, objectTree, unbounded);
            EXPECT_EQ(output, testing::internal::GetCapturedStdout());
            EXPECT_TRUE(test::identical(search.getClosestPoint1(), expected.getClosestPoint1()));
            EXPECT_TRUE(test::identical(search.getClosestPoint2(), expected.getClosestPoint2()));
            found += !expected.getClosestPoint1().isZero();
            touching += !output.empty();
        }
        near += static_cast<int>(search.getNearSearchCount());
        others += 3 - static_cast<int>(search.getNearSearchCount());
    }
    EXPECT_GT(std::min({found, touching, near, others}), runs / 10)
        << found << ' ' << touching << ' ' << near << ' ' << others;
}

} // namespace tesk::measurement
