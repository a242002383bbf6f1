#include <measurement/section/GeometrySliceFactory.h>

#include "PlainSlice.h"

#include <OpenSG/OSGQuaternion.h>

#include <scenegraph/geometry/Geometries.h>
#include <support/Primitives.h>
#include <support/Random.h>
#include <support/Scenes.h>

#include <algorithm>
#include <cstdlib>

namespace tesk::measurement {

namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();

/// How often what is worth testing came up.
struct Occurrences {
    std::size_t segments = 0, cutByMany = 0, planesMissing = 0, notFiniteSegments = 0, zeroLengths = 0;
};

template <class Indices> test::SceneNode createPart(test::Random& random, const std::vector<Triangle>& triangles) {
    // Positions are shared, or far more than used, or neither; some are missing.
    const std::size_t unused = random.chance(0.3f) ? 200 : 0;
    const auto size = static_cast<osg::UInt32>(triangles.size() * 3);
    std::vector<osg::UInt32> indices(size);
    for (osg::UInt32 i = 0; i < size; ++i) indices[i] = random.chance(0.4f) ? random.below(size + 1) : i;
    const std::vector<osg::UInt8> types{
        static_cast<osg::UInt8>(random.chance(0.7f) ? GL_TRIANGLES : GL_TRIANGLE_STRIP)};
    if (random.chance(0.2f)) indices.clear();
    const auto geometry = geometryOf<Indices>({types, {size}, static_cast<int>(size + unused), indices});
    for (osg::UInt32 i = 0; i < size; i += 3) {
        geometry->getPositions()->setValue(triangles[i / 3].p0, i);
        geometry->getPositions()->setValue(triangles[i / 3].p1, i + 1);
        geometry->getPositions()->setValue(triangles[i / 3].p2, i + 2);
    }
    return test::SceneNode(osg::makeNodeFor(geometry));
}

osg::Matrix createFrame(test::Random& random) {
    osg::Matrix frame;
    if (random.chance(0.3f)) return frame;
    const float scale = random.chance(0.1f) ? 1e-5f : random.chance(0.1f) ? 1e6f : 1.0f;
    frame.setTransform(random.vector(random.chance(0.1f) ? 1e5f : 3.0f), osg::Quaternion(random.vector(1), 2),
                       {scale, random.chance(0.3f) ? -1.0f : 1.0f, random.real(0.5f, 2)});
    const float odd[] = {infinity, -infinity, NAN, 1e38f, 0.0f};
    if (random.chance(0.05f)) frame[random.below(4)][random.below(3)] = odd[random.below(5)];
    return frame;
}

test::SceneNode createScene(test::Random& random, std::vector<osg::Pnt3f>& corners) {
    test::SceneNodes parts;
    const test::Kind kind = random.kind();
    for (std::uint32_t part = random.below(4); part < 4; ++part) {
        std::vector<Triangle> triangles(random.below(12));
        for (Triangle& triangle : triangles) {
            triangle = random.triangle(random.chance(0.5f) ? kind : random.kind(), 3.0f);
            corners.insert(corners.end(), {triangle.p0, triangle.p1, triangle.p2});
        }
        const test::SceneNode node = random.chance(0.5f) ? createPart<osg::GeoIndicesUI16>(random, triangles)
                                                         : createPart<osg::GeoIndicesUI32>(random, triangles);
        if (random.chance(0.1f)) node->setTravMask(7);
        parts.push_back(random.chance(0.5f) ? test::transform(createFrame(random), {node}) : node);
    }
    const test::SceneNode inner = test::group({parts.begin() + 1, parts.end()});
    return random.chance(0.5f) ? test::transform(createFrame(random), {parts[0], inner})
                               : test::group({parts[0], inner});
}

osg::Vec3f createNormal(test::Random& random) {
    osg::Vec3f normal = random.vector(random.chance(0.1f) ? 1e20f : 1.0f);
    if (random.chance(0.3f)) normal = osg::Vec3f(random.triangle(test::Kind::lattice, 1.0f).p0);
    if (random.chance(0.03f)) normal[random.below(3)] = random.chance(0.5f) ? NAN : infinity;
    return normal;
}

std::vector<float> createOffsets(test::Random& random, const osg::Vec3f& normal,
                                 const std::vector<osg::Pnt3f>& corners) {
    const std::uint32_t counts[] = {0, 1, 2, 7, 50, 150};
    std::vector<float> offsets(counts[random.below(6)]);
    const bool isEven = random.chance(0.5f);
    for (std::size_t i = 0; i < offsets.size(); ++i) {
        float& offset = offsets[i] = isEven ? 0.05f * static_cast<float>(i) - 2.0f : random.real(-4, 4);
        if (!corners.empty() && random.chance(0.3f)) {
            const osg::Pnt3f& corner = corners[random.below(static_cast<std::uint32_t>(corners.size()))];
            offset = -(normal[0] * corner[0] + normal[1] * corner[1] + normal[2] * corner[2]);
        }
        const float odd[] = {infinity, -infinity, NAN, 0.0f, -0.0f, 1e38f, -1e-42f};
        if (random.chance(0.05f)) offset = odd[random.below(7)];
    }
    return offsets;
}

template <class Outline>
testing::AssertionResult areIdentical(const Outline& outline, const std::list<Segment>& plain) {
    if (outline.size() != plain.size()) return testing::AssertionFailure() << outline.size() << " for " << plain.size();
    auto expected = plain.begin();
    for (const Segment& segment : outline) {
        const testing::AssertionResult same = test::identical(segment, *expected++);
        if (!same) return same;
    }
    return testing::AssertionSuccess();
}

void compareWithPlain(const osg::NodePtr& scene, const osg::Vec3f& normal, const std::vector<float>& offsets,
                      Occurrences& found) {
    std::size_t plane = 0, cut = 0;
    GeometrySliceFactory().createSlices(scene, normal, offsets, [&](const std::vector<Segment>& outline) {
        ASSERT_LT(plane, offsets.size());
        const osg::Vec4f single(normal[0], normal[1], normal[2], offsets[plane++]);
        const std::list<Segment> plain = test::PlainSlice(scene, single).segments;
        ASSERT_TRUE(areIdentical(outline, plain)) << "plane " << single;
        std::list<Segment> alone(3);
        GeometrySliceFactory().createSlice(scene, single, alone);
        ASSERT_TRUE(areIdentical(alone, plain)) << "plane " << single << " alone";
        cut += !plain.empty();
        found.segments += plain.size();
        for (const auto& [start, end] : plain) {
            found.zeroLengths += start == end;
            found.notFiniteSegments += !std::isfinite(start[0] + end[0]);
        }
    });
    EXPECT_EQ(plane, offsets.size());
    found.cutByMany += cut > 10;
    found.planesMissing += offsets.size() - cut;
}

} // namespace

TEST(ParallelSlices, GiveThePlainSegmentsOfEveryPlane) {
    // A longer search: TESK_TEST_RUNS=1000000.
    const char* const runsWanted = std::getenv("TESK_TEST_RUNS");
    const int runs = runsWanted ? std::atoi(runsWanted) : 3000;
    Occurrences found;
    for (int run = 0; run < runs && !testing::Test::HasFailure(); ++run) {
        SCOPED_TRACE(run);
        test::Random random(static_cast<std::uint32_t>(run));
        std::vector<osg::Pnt3f> corners;
        const test::SceneNode scene = createScene(random, corners);
        const osg::Vec3f normal = createNormal(random);
        compareWithPlain(scene, normal, createOffsets(random, normal, corners), found);
    }
    const auto atLeast = static_cast<std::size_t>(runs);
    EXPECT_GT(found.segments, 50 * atLeast);
    EXPECT_GT(found.cutByMany, atLeast / 10);
    EXPECT_GT(found.planesMissing, 5 * atLeast);
    EXPECT_GT(found.notFiniteSegments, atLeast / 2);
    EXPECT_GT(found.zeroLengths, atLeast / 2);
    RecordProperty("segments", std::to_string(found.segments));
}

TEST(ParallelSlices, AreFoundInBlocksWhereSegmentsAreMany) {
    std::vector<Triangle> spikes;
    for (int i = 0; i < 10000; ++i) spikes.push_back({{0, 0, -1}, {1, float(i), -1}, {0, 1, 1}});
    const test::SceneNode scene = test::triangles(spikes);
    std::vector<float> offsets(300);
    for (std::size_t i = 0; i < offsets.size(); ++i) offsets[i] = i % 2 ? 0.003f * float(i) : -0.002f * float(i);
    std::size_t plane = 0;
    GeometrySliceFactory().createSlices(scene, {0, 0, 1}, offsets, [&](const std::vector<Segment>& outline) {
        ASSERT_EQ(outline.size(), spikes.size());
        ASSERT_NEAR(outline.back().start[2], -offsets[plane++], 1e-6f);
    });
    EXPECT_EQ(plane, offsets.size());
}

} // namespace tesk::measurement
