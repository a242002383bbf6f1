#include <platform/tkOptimize.h>

#include <OpenSG/OSGGeometry.h>

#include <support/Primitives.h>
#include <support/Random.h>
#include <support/Scenes.h>

#include <cmath>

namespace tesk::test {

static osg::GeometryPtr coreOf(const SceneNode& node) { return osg::GeometryPtr::dcast(node->getCore()); }

TEST(tkOptimize, UnifiesAsAllPairsDo) {
    Random random(5);
    for (osg::UInt32 run = 0; run < 300; ++run) {
        const float extent = std::pow(10.0f, random.real(-3.0f, 6.0f)), epsilon = extent * random.real(0.1f, 0.5f);
        // An index of nothing stays, and so does what another geometry may share.
        Mesh mesh{{}, {999}}, expected = mesh;
        for (osg::UInt32 i = 0; i < 200; ++i) {
            osg::Pnt3f p = random.point(extent);
            // On multiples of the distance, where rounding decides about the cell.
            if (run % 3 == 0) p = osg::Pnt3f(std::round(p[0] / epsilon) * epsilon, 0, p[2]);
            if (random.chance(0.1f)) p[random.below(3)] = random.chance(0.5f) ? NAN : -HUGE_VALF;
            mesh.positions.push_back(p);
            mesh.indices.push_back(i);
            osg::UInt32 kept = 0;
            const auto side = [&](int axis) { return double(p[axis]) - double(expected.positions[kept][axis]); };
            const auto distance = [&] { return std::hypot(std::hypot(side(0), side(1)), side(2)); };
            while (kept < expected.positions.size() && !(distance() <= double(epsilon))) ++kept;
            if (kept == expected.positions.size()) expected.positions.push_back(p);
            expected.indices.push_back(kept);
        }
        const SceneNode node = geometry(mesh);
        const osg::GeoIndicesRefPtr shared(coreOf(node)->getIndices());
        tkOptimize::unifyVerticesEpsilon(node, epsilon);
        ASSERT_EQ(osg::GeoIndicesUI32Ptr::dcast(coreOf(node)->getIndices())->getField().getValues(), expected.indices);
        ASSERT_EQ(shared->getValue(200), 199u);
        for (osg::UInt32 i = 0; i < expected.positions.size(); ++i)
            ASSERT_TRUE(identical(coreOf(node)->getPositions()->getValue(i), expected.positions[i]));
    }
}

TEST(tkOptimize, LeavesWhatItCannotUnifyAndBearsCrowds) {
    for (const float epsilon : {0.0f, NAN, HUGE_VALF}) {
        const SceneNode node = geometry({std::vector<osg::Pnt3f>(100000, osg::Pnt3f(1, 2, 3)), {0}});
        coreOf(node)->setNormals(osg::GeoNormals3f::create());
        tkOptimize::unifyVerticesEpsilon(node, 1.0f);
        coreOf(node)->setNormals(osg::NullFC);
        tkOptimize::unifyVerticesEpsilon(node, epsilon);
        EXPECT_EQ(coreOf(node)->getPositions()->getSize(), epsilon > 0.0f ? 1u : 100000u);
    }
    for (const SceneNode& node : {SceneNode(), group({})}) tkOptimize::unifyVerticesEpsilon(node, 1.0f);
}

} // namespace tesk::test
