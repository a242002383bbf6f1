#include <measurement/acceleration/Workers.h>
#include <measurement/scene/detail/SubtreeWalk.h>
#include <measurement/section/GeometrySliceFactory.h>
#include <measurement/section/TriListI16TriangleIterator.h>
#include <measurement/section/TriListI32TriangleIterator.h>
#include <measurement/section/detail/ParallelSlices.h>
#include <measurement/section/detail/PlaneCut.h>

#include "HostileScene.h"

#include <OpenSG/OSGDynamicVolume.h>

#include <support/Primitives.h>

namespace tesk::measurement {

namespace {

constexpr float infinity = HUGE_VALF;

struct Corner {
    osg::Pnt3f position;
    float distance;
};

/// Appends where the triangle's edges meet the plane, a point after the other.
std::list<Segment> cutPlainly(const Corner (&corners)[3], const osg::Matrix& toWorld) {
    std::vector<osg::Pnt3f> points;
    for (const auto& [from, to] : {std::pair(0, 1), std::pair(0, 2), std::pair(1, 2)}) {
        const float parameter = corners[from].distance / (corners[from].distance - corners[to].distance);
        const bool isOn = parameter >= 0.0f && parameter <= 1.0f;
        // The last edge ends what another began, and begins nothing.
        if (from == 1 ? points.empty() || (points.size() == 2 && !isOn) : !isOn) continue;
        osg::Pnt3f point;
        for (osg::UInt32 i = 0; i < 3; ++i) {
            const float start = corners[from].position[i];
            point[i] = start + parameter * (corners[to].position[i] - start);
        }
        toWorld.multMatrixPnt(point);
        points.push_back(point);
    }
    std::list<Segment> segments;
    // The third point may be the second again.
    for (std::size_t i = 1; i < points.size(); ++i) {
        bool isOther = i == 1;
        for (osg::UInt32 axis = 0; axis < 3; ++axis)
            isOther |= !(std::fabs(points[i][axis] - points[i - 1][axis]) <= 1e-6f);
        if (isOther) segments.push_back({points[i - 1], points[i]});
    }
    return segments;
}

template <class Visitor> void withTriangles(const osg::NodePtr& node, Visitor visit) {
    const osg::GeometryPtr geometry = detail::getGeometry(node);
    if (geometry == osg::NullFC) return;
    if (!detail::isTriangleList(geometry))
        visit(GenericTriangleIterator(node));
    else if (osg::GeoIndicesUI16Ptr::dcast(geometry->getIndices()) != osg::NullFC)
        visit(TriListI16TriangleIterator(node));
    else
        visit(TriListI32TriangleIterator(node));
}

/// Node by node, triangle by triangle, with one plane.
std::list<Segment> slicePlainly(const osg::NodePtr& scene, const detail::Plane& plane) {
    std::list<Segment> segments;
    detail::visitSubtreeWhere(scene, [&](const osg::NodePtr& node) {
        osg::DynamicVolume volume;
        node->getWorldVolume(volume);
        detail::Box box;
        volume.getBounds(box.min, box.max);
        const detail::BoxHeights heights(box, plane.normal);
        if (node->getTravMask() != 0xffffffff || heights.areBelow(plane.offset) || heights.areAbove(plane.offset))
            return false;
        const osg::Matrix toWorld = node->getToWorld();
        const detail::Plane local(plane, toWorld);
        withTriangles(node, [&](auto triangle) {
            for (; !triangle.isAtEnd(); ++triangle) {
                Corner corners[3];
                int below = 0;
                for (osg::UInt32 i = 0; i < 3; ++i) {
                    const osg::Pnt3f position = triangle.getPosition(i);
                    corners[i] = {position, detail::dot(local.normal, osg::Vec3f(position)) + local.offset};
                    below += corners[i].distance < 0.0f;
                }
                if (below == 1 || below == 2) segments.splice(segments.end(), cutPlainly(corners, toWorld));
            }
        });
        return true;
    });
    return segments;
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

template <class Outline> void expectIdentical(const Outline& outline, const std::list<Segment>& plain) {
    ASSERT_EQ(outline.size(), plain.size());
    auto expected = plain.begin();
    for (const Segment& segment : outline) ASSERT_TRUE(test::identical(segment, *expected++));
}

} // namespace

TEST(ParallelSlices, GiveThePlainSegmentsOfEveryPlane) {
    const int runs = test::differentialRuns(1500);
    int segments = 0, cut = 0, missing = 0, notFinite = 0, pointlike = 0;
    for (int run = 0; run < runs && !testing::Test::HasFailure(); ++run) {
        SCOPED_TRACE(run);
        test::Random random(static_cast<std::uint32_t>(run));
        std::vector<osg::Pnt3f> corners;
        const test::SceneNode scene = test::hostileScene(random, corners);
        const osg::Vec3f normal = createNormal(random);
        const std::vector<float> offsets = createOffsets(random, normal, corners);
        std::size_t plane = 0;
        const acceleration::ForcedChunks chunks(random.chance(0.3f) ? 3 : 1);
        detail::ParallelSlices(scene, normal).forEachOutline(offsets, [&](const std::vector<Segment>& outline) {
            ASSERT_LT(plane, offsets.size());
            const osg::Vec4f single(normal[0], normal[1], normal[2], offsets[plane++]);
            const std::list<Segment> plain = slicePlainly(scene, {normal, single[3]});
            std::list<Segment> alone(3);
            GeometrySliceFactory().createSlice(scene, single, alone);
            expectIdentical(outline, plain);
            expectIdentical(alone, plain);
            ++(plain.empty() ? missing : cut);
            for (const auto& [start, end] : plain) {
                ++segments;
                pointlike += start == end;
                notFinite += !std::isfinite(start[0] + end[0]);
            }
        });
        EXPECT_EQ(plane, offsets.size());
    }
    EXPECT_GT(std::min({segments / 50, cut, missing, notFinite, pointlike}), runs / 2)
        << segments << ' ' << cut << ' ' << missing << ' ' << notFinite << ' ' << pointlike;
}

TEST(ParallelSlices, AreFoundInBlocksWhereSegmentsAreMany) {
    std::vector<Triangle> spikes;
    for (int i = 0; i < 10000; ++i) spikes.push_back({{0, 0, -1}, {1, float(i), -1}, {0, 1, 1}});
    const test::SceneNode scene = test::triangles(spikes);
    std::vector<float> offsets(300);
    for (std::size_t i = 0; i < offsets.size(); ++i) offsets[i] = i % 2 ? 0.003f * float(i) : -0.002f * float(i);
    std::size_t plane = 0;
    const acceleration::ForcedChunks chunks(3);
    detail::ParallelSlices(scene, {0, 0, 1}).forEachOutline(offsets, [&](const std::vector<Segment>& outline) {
        ASSERT_EQ(outline.size(), spikes.size());
        ASSERT_NEAR(outline.back().start[2], -offsets[plane++], 1e-6f);
    });
    EXPECT_EQ(plane, offsets.size());
}

} // namespace tesk::measurement
