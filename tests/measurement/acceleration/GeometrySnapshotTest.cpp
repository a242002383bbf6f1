#include <measurement/scene/BoundingVolumeTree.h>
#include <measurement/scene/detail/GeometrySnapshot.h>

#include <support/HostileMeshes.h>
#include <support/Primitives.h>

#include <OpenSG/OSGGeometry.h>

namespace tesk::measurement {

namespace {

/// World triangles in the order of the scene graph's iterator.
struct Unsplit : BoundingVolumeTree {
    explicit Unsplit(const osg::NodePtr& node) { buildRec(node, false); }
};

} // namespace

TEST(GeometrySnapshot, HoldsTheTrianglesOfTheIterator) {
    test::Random random(23);
    const int runs = 2000;
    int ownIndices = 0, empty = 0;
    for (int run = 0; run < runs && !testing::Test::HasFailure(); ++run) {
        SCOPED_TRACE(run);
        const test::SceneNode node = test::hostileGeometry(random);
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
