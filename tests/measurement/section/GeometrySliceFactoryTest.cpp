#include <measurement/section/GeometrySliceFactory.h>

#include <OpenSG/OSGQuaternion.h>

#include <scenegraph/geometry/Geometries.h>
#include <support/BruteForce.h>
#include <support/Primitives.h>
#include <support/Random.h>
#include <support/Scenes.h>

#include <algorithm>

namespace tesk::measurement {

static std::list<Segment> slice(const osg::NodePtr& node, const osg::Vec4f& plane) {
    std::list<Segment> segments(7);
    GeometrySliceFactory().createSlice(node, plane, segments);
    return segments;
}

TEST(GeometrySliceFactory, AgreesWithBruteForceInAnyFrame) {
    const auto areNear = [](auto& a, auto& b) { return a.start.dist(b.start) + a.end.dist(b.end) < 1e-4f; };
    test::Random random(11);
    int cut = 0;
    for (int run = 0; run < 500; ++run) {
        // Whole coordinates and half an offset: no corner is on the plane.
        const osg::Pnt3f normal = random.triangle(test::Kind::lattice, 3.0f).p0;
        const osg::Vec4f plane(normal[0], normal[1], normal[2], 0.5f);
        std::vector<Triangle> triangles(4);
        test::Mesh mesh;
        for (Triangle& t : triangles) {
            t = random.triangle(test::Kind::lattice, 3.0f);
            mesh.positions.insert(mesh.positions.end(), {t.p0, t.p1, t.p2});
        }
        for (osg::UInt32 i = 0; i < 12; ++i) mesh.indices.push_back(i);
        const auto core = geometryOf<osg::GeoIndicesUI16>({{GL_TRIANGLES}, {12}, 12, mesh.indices});
        for (osg::UInt32 i = 0; i < 12; ++i) core->getPositions()->setValue(mesh.positions[i], i);
        const test::SceneNode hidden = test::group({test::geometry(mesh)});
        hidden->setTravMask(run % 2 ? 0 : 0x7fffffff);
        const test::SceneNode choice = test::switchNode(1, {test::quad(0), test::triangles(triangles)});
        osg::Matrix frame, toLocal;
        frame.setTransform(random.vector(9), osg::Quaternion(random.vector(1), 2), {random.real(0.5f, 2), -1, 0.7f});
        frame.inverse(toLocal);
        const auto along = [&](int i) { return osg::Vec3f(toLocal[i]).dot(normal) + toLocal[i][3] * plane[3]; };
        const test::SceneNode scene =
            test::transform(frame, {test::SceneNode(osg::makeNodeFor(core)), hidden, choice, test::geometry(mesh)});
        const std::list<Segment> segments = slice(scene, {along(0), along(1), along(2), along(3)});

        std::list<Segment> expected;
        for (int layout = 0; layout < 3; ++layout) expected.splice(expected.end(), test::cut(triangles, plane));
        for (Segment& segment : expected)
            for (osg::Pnt3f* end : {&segment.start, &segment.end}) frame.multMatrixPnt(*end);
        EXPECT_TRUE(std::equal(segments.begin(), segments.end(), expected.begin(), expected.end(), areNear)) << run;
        cut += !expected.empty();
    }
    EXPECT_GT(cut, 300);
}

TEST(GeometrySliceFactory, ClosesTheOutlinesOfClosedMeshes) {
    test::Mesh torus = test::torus(1800);
    // Sews up the seams: 30 cells, 31 positions each way.
    for (osg::UInt32& index : torus.indices) index = index / 31 % 30 * 31 + index % 31 % 30;
    test::Random random(12);
    for (int run = 0; run < 40; ++run) {
        const osg::Vec3f normal = random.vector(1);
        const auto outline = slice(test::geometry(torus), {normal[0], normal[1], normal[2], random.real(-0.1f, 0.1f)});
        EXPECT_GT(outline.size(), 50u);
        for (const Segment& one : outline)
            for (const osg::Pnt3f& end : {one.start, one.end})
                EXPECT_TRUE(std::any_of(outline.begin(), outline.end(), [&](const Segment& other) {
                    return &one != &other && std::min(end.dist(other.start), end.dist(other.end)) < 1e-5f;
                })) << run;
    }
}

TEST(GeometrySliceFactory, CountsCornersOnThePlaneAsPositive) {
    const float nan = std::nanf("");
    const osg::Pnt3f p0(0, 0, 0), p1(4, 0, 0), p2(0, 4, 0);
    const std::pair<osg::Vec3f, std::vector<Segment>> rows[] = {{{0, 0, 0}, {}},
                                                                {{0, 1, 2}, {}},
                                                                {{0, 0, -1}, {{p0, p1}}},
                                                                {{0, -1, -2}, {{p0, p0}}},
                                                                {{-1, 0, -2}, {{p1, p1}}},
                                                                {{0, -1, 1}, {{p0, p0}, {p0, {2, 2, 0}}}},
                                                                {{-1, 0, 1}, {{p1, {0, 2, 0}}, {{0, 2, 0}, p1}}},
                                                                {{-1, 1, 0}, {{{2, 0, 0}, p2}}},
                                                                {{-1, nan, 1}, {{{0, 2, 0}, {nan, nan, nan}}}}};
    for (const auto& [heights, expected] : rows) {
        const test::SceneNode node = test::triangles({{{0, 0, heights[0]}, {4, 0, heights[1]}, {0, 4, heights[2]}}});
        const std::list<Segment> segments = slice(node, {0, 0, 1, 0});
        EXPECT_TRUE(std::equal(segments.begin(), segments.end(), expected.begin(), expected.end(),
                               [](auto& a, auto& b) -> bool { return test::identical(a, b); }))
            << heights;
    }
}

TEST(GeometrySliceFactory, ChoosesTheIteratorByLengthsTypesAndIndices) {
    const std::vector<osg::UInt32> some{0, 1, 2};
    // Only the walk over the raw indices finds a triangle in a primitive of length 2.
    const std::pair<Content, std::size_t> rows[] = {
        {{{4, 5}, {2}, 9, some}, 1}, {{{4}, {2}, 9}, 0},
        {{{4}, {2, 0}, 9, some}, 0}, {{{5}, {2}, 9, some}, 0},
        {{{4}, {}, 9, some}, 1},     {{{}, {3}, 9, some}, 0},
        {{{4}, {3}, -1, some}, 0},   {{{4, 4}, {9, 9}, 9, {0, 1, 2, 4000000000}}, 1}};
    for (const auto& row : rows) {
        const osg::NodeRefPtr node(osg::makeNodeFor(geometryOf(row.first)));
        EXPECT_EQ(slice(node, {1, 0, 0, -0.5f}).size(), row.second) << &row - rows;
    }
    EXPECT_TRUE(slice(osg::NullFC, {1, 0, 0, 0}).empty());
}

} // namespace tesk::measurement
