#include <measurement/scene/BoundingVolumeTree.h>
#include <measurement/scene/detail/GeometrySnapshot.h>

#include <support/Primitives.h>
#include <support/Random.h>
#include <support/Scenes.h>

#include <OpenSG/OSGGeometry.h>

namespace tesk::measurement {

namespace {

/// World triangles in the order of the scene graph's iterator.
struct Unsplit : BoundingVolumeTree {
    explicit Unsplit(const osg::NodePtr& node) { buildRec(node, false); }
};

/// Any primitives over any indices, most of them good, of any width.
test::SceneNode randomGeometry(test::Random& random) {
    test::Mesh mesh;
    for (std::uint32_t i = 1 + random.below(200); i > 0; --i) mesh.positions.push_back(random.point(3.0f));
    const auto positionCount = static_cast<osg::UInt32>(mesh.positions.size());
    for (std::uint32_t i = random.below(120); i > 0; --i)
        mesh.indices.push_back(random.below(positionCount + (random.chance(0.01f) ? 2 : 0)));
    if (random.chance(0.7f)) mesh.indices.resize(mesh.indices.size() / 3 * 3);
    const test::SceneNode node = test::geometry(mesh);
    const osg::GeometryPtr core = osg::GeometryPtr::dcast(node->getCore());
    if (random.chance(0.2f)) {
        const osg::GeoIndicesPtr narrow = osg::GeoIndicesUI16::create();
        for (const osg::UInt32 index : mesh.indices) narrow->push_back(index);
        core->setIndices(narrow);
    }
    if (random.chance(0.2f)) core->getLengths()->setValue(random.below(40), 0);
    if (random.chance(0.2f)) core->getTypes()->setValue(GL_TRIANGLE_STRIP, 0);
    if (random.chance(0.2f)) {
        core->getTypes()->push_back(GL_TRIANGLE_FAN);
        core->getLengths()->push_back(random.below(20));
    }
    if (random.chance(0.1f)) {
        core->getMFIndexMapping()->push_back(osg::Geometry::MapNormal);
        core->getMFIndexMapping()->push_back(osg::Geometry::MapPosition);
    }
    return node;
}

} // namespace

TEST(GeometrySnapshot, HoldsTheTrianglesOfTheIterator) {
    test::Random random(23);
    const int runs = 2000;
    int ownIndices = 0, empty = 0;
    for (int run = 0; run < runs && !testing::Test::HasFailure(); ++run) {
        SCOPED_TRACE(run);
        const test::SceneNode node = randomGeometry(random);
        osg::Matrix placement = test::scaled(random.real(-2.0f, 2.0f));
        placement.setTranslate(random.point(9.0f));
        const test::SceneNode scene = test::transform(placement, {node});
        const osg::GeometryPtr core = osg::GeometryPtr::dcast(node->getCore());
        const detail::GeometrySnapshot snapshot(core, node->getToWorld());
        const acceleration::TriangleMesh& mesh = snapshot.getMesh();
        const Unsplit expected(node);
        ASSERT_EQ(mesh.triangleCount, expected.getTriangles().size());
        std::uint32_t number = 0;
        for (const Triangle& triangle : expected.getTriangles()) EXPECT_TRUE(test::identical(mesh[number++], triangle));
        const osg::GeoIndicesUI32Ptr indices = osg::GeoIndicesUI32Ptr::dcast(core->getIndices());
        ownIndices += indices != osg::NullFC && number > 0 && mesh.corners == &indices->getField()[0];
        empty += number == 0;
    }
    EXPECT_GT(ownIndices, runs / 20);
    EXPECT_GT(empty, runs / 100);
    EXPECT_EQ(detail::GeometrySnapshot(osg::GeometryPtr(), osg::Matrix()).getMesh().triangleCount, 0u);
}

} // namespace tesk::measurement
