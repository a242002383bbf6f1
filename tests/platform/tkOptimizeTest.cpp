#include <platform/tkOptimize.h>

#include <OpenSG/OSGGeometry.h>

#include <support/Primitives.h>
#include <support/Random.h>
#include <support/Scenes.h>

#include <cmath>

namespace tesk::test {

namespace {

osg::GeometryPtr coreOf(const SceneNode& node) { return osg::GeometryPtr::dcast(node->getCore()); }

std::vector<osg::Pnt3f> positionsOf(const SceneNode& node) {
    std::vector<osg::Pnt3f> positions;
    for (osg::UInt32 i = 0; i < coreOf(node)->getPositions()->getSize(); ++i)
        positions.push_back(coreOf(node)->getPositions()->getValue(i));
    return positions;
}

std::vector<osg::UInt32> indicesOf(const SceneNode& node) {
    std::vector<osg::UInt32> indices;
    for (osg::UInt32 i = 0; i < coreOf(node)->getIndices()->getSize(); ++i)
        indices.push_back(coreOf(node)->getIndices()->getValue(i));
    return indices;
}

/// The same by comparing all pairs. The indices are whole numbers in order.
Mesh unifyPlainly(const std::vector<osg::Pnt3f>& positions, float epsilon) {
    Mesh result;
    for (const osg::Pnt3f& p : positions) {
        osg::UInt32 i = 0;
        while (i < result.positions.size()) {
            const osg::Pnt3f& kept = result.positions[i];
            const auto side = [&](osg::UInt32 axis) { return double(p[axis]) - double(kept[axis]); };
            if (std::sqrt(side(0) * side(0) + side(1) * side(1) + side(2) * side(2)) <= double(epsilon)) break;
            ++i;
        }
        if (i == result.positions.size()) result.positions.push_back(p);
        result.indices.push_back(i);
    }
    return result;
}

/// Positions that are all used, in order.
SceneNode cloud(const std::vector<osg::Pnt3f>& positions) {
    Mesh mesh{positions, {}};
    while (mesh.indices.size() < positions.size()) mesh.indices.push_back(static_cast<osg::UInt32>(mesh.indices.size()));
    return geometry(mesh);
}

} // namespace

TEST(tkOptimize, UnifiesAsAllPairsDo) {
    Random random(5);
    for (int run = 0; run < 300; ++run) {
        const float extent = std::pow(10.0f, random.real(-3.0f, 6.0f)), epsilon = extent * random.real(0.01f, 0.5f);
        std::vector<osg::Pnt3f> positions;
        for (int i = 0; i < 200; ++i) {
            osg::Pnt3f point = random.point(extent);
            // On multiples of the distance, where rounding decides about the cell.
            if (run % 3 == 0) point = osg::Pnt3f(std::round(point[0] / epsilon) * epsilon, 0, point[2]);
            if (random.chance(0.1f)) point[random.below(3)] = random.chance(0.5f) ? NAN : -HUGE_VALF;
            if (i > 0 && random.chance(0.1f)) point = positions[random.below(static_cast<std::uint32_t>(i))];
            if (random.chance(0.01f)) point *= 1e30f;
            positions.push_back(point);
        }
        const SceneNode node = cloud(positions);
        tkOptimize::unifyVerticesEpsilon(node, epsilon);
        const Mesh expected = unifyPlainly(positions, epsilon);
        ASSERT_LT(expected.positions.size(), positions.size());
        ASSERT_EQ(indicesOf(node), expected.indices) << run;
        for (size_t i = 0; i < expected.positions.size(); ++i)
            ASSERT_TRUE(identical(positionsOf(node)[i], expected.positions[i]));
    }
}

TEST(tkOptimize, KeepsChainsApartAndTheVolumeRight) {
    // The second joins the first, the third is too far from the first, the fourth joins the third. One is not used.
    const SceneNode node = geometry({{{0, 0, 0}, {3, 0, 0}, {6, 0, 0}, {9, 0, 0}, {50, 0, 0}}, {3, 1, 0, 2, 7}});
    const SceneNode sharing = geometry({{}, {0}});
    coreOf(sharing)->setPositions(coreOf(node)->getPositions());
    coreOf(sharing)->setIndices(coreOf(node)->getIndices());
    tkOptimize::unifyVerticesEpsilon(node, 4.0f);
    EXPECT_EQ(positionsOf(node).size(), 3u);
    EXPECT_EQ(indicesOf(node), (std::vector<osg::UInt32>{1, 0, 0, 1, 7}));
    EXPECT_EQ(node->getVolume().getMax()[0], 6.0f);
    EXPECT_TRUE(positionsOf(sharing).size() == 5 && indicesOf(sharing)[0] == 3);
}

TEST(tkOptimize, LeavesWhatItCannotUnify) {
    const float nan = std::nanf("");
    for (const float epsilon : {0.0f, -1.0f, nan}) {
        const SceneNode node = cloud({{0, 0, 0}, {0, 0, 0}});
        tkOptimize::unifyVerticesEpsilon(node, epsilon);
        EXPECT_EQ(positionsOf(node).size(), 2u);
    }
    const auto expectUnchanged = [](auto change) {
        const SceneNode node = cloud({{0, 0, 0}, {0, 0, 0}});
        change(coreOf(node));
        const osg::GeoPositionsPtr positions = coreOf(node)->getPositions();
        tkOptimize::unifyVerticesEpsilon(node, 1.0f);
        EXPECT_TRUE(coreOf(node)->getPositions() == positions);
    };
    expectUnchanged([](const auto& core) { core->setIndices(osg::NullFC); });
    expectUnchanged([](const auto& core) { core->setPositions(osg::NullFC); });
    expectUnchanged([](const auto& core) { core->setPositions(osg::GeoPositions4f::create()); });
    expectUnchanged([](const auto& core) { core->setNormals(osg::GeoNormals3f::create()); });
    expectUnchanged([](const auto& core) { core->getIndexMapping().resize(2); });
    tkOptimize::unifyVerticesEpsilon(osg::NullFC, 1.0f);
    tkOptimize::unifyVerticesEpsilon(group({}), 1.0f);
}

TEST(tkOptimize, BearsCrowdedClouds) {
    // As dense as kept positions can be, and all within one cell but for the distances' rounding.
    std::vector<osg::Pnt3f> dense, same(100000, osg::Pnt3f(1, 2, 3));
    for (int i = 0; i < 64000; ++i) dense.emplace_back(float(i % 40), float(i / 40 % 40), float(i / 1600));
    const SceneNode denseNode = cloud(dense), sameNode = cloud(same);
    tkOptimize::unifyVerticesEpsilon(denseNode, 0.999f);
    tkOptimize::unifyVerticesEpsilon(sameNode, HUGE_VALF);
    EXPECT_EQ(positionsOf(denseNode).size(), dense.size());
    EXPECT_EQ(positionsOf(sameNode).size(), 1u);
}

} // namespace tesk::test
