#include <measurement/scene/BoundingVolumeTree.h>

#include <support/Primitives.h>
#include <support/Random.h>
#include <support/Scenes.h>

#include <algorithm>

namespace tesk::measurement {

namespace {

/// The triangles of each node, nodes in depth-first order.
using Lists = std::vector<std::list<Triangle>>;

float least(const Triangle& t, int k) { return std::min({t.p0[k], t.p1[k], t.p2[k]}); }
float most(const Triangle& t, int k) { return std::max({t.p0[k], t.p1[k], t.p2[k]}); }

/// Splits by copying into three lists, without a tree.
void splitPlainly(const std::list<Triangle>& own, Lists& lists) {
    Lists best{own};
    for (int k = 0; k < 3 && own.size() > 4; ++k) {
        float min = 3.4028235e38f, max = -3.4028235e38f;
        for (const Triangle& t : own) {
            if (least(t, k) < min) min = least(t, k);
            if (most(t, k) > max) max = most(t, k);
        }
        Lists sides(3); // straddling, lower, upper
        for (const Triangle& t : own) {
            const bool isUpper = (min + max) * 0.5f <= (t.p0[k] + t.p1[k] + t.p2[k]) * 0.33333334f;
            sides[most(t, k) - least(t, k) >= (max - min) * 0.5f ? 0 : isUpper ? 2 : 1].push_back(t);
        }
        const bool isUsable = !sides[0].empty() || (!sides[1].empty() && !sides[2].empty());
        if (isUsable && sides[0].size() < best[0].size()) best = sides;
    }
    lists.push_back(best[0]);
    for (std::size_t side = 1; side < best.size(); ++side)
        if (!best[side].empty()) splitPlainly(best[side], lists);
}

void collect(const BoundingVolumeNode* node, Lists& lists) {
    if (!node) return;
    lists.push_back(node->getTriangles());
    for (const Triangle& t : node->getTriangles())
        for (int k = 0; k < 3; ++k) EXPECT_FALSE(least(t, k) < node->getMin()[k] || most(t, k) > node->getMax()[k]);
    collect(node->getLow(), lists);
    collect(node->getHigh(), lists);
}

} // namespace

TEST(BoundingVolumeTree, IsTheHierarchyOfPlainSplitting) {
    std::vector<std::vector<Triangle>> inputs{
        {}, test::trianglesOf(test::torus(900)), test::trianglesOf(test::terrain(2000))};
    test::Random random(3);
    for (int i = 0; i < 60; ++i) {
        inputs.emplace_back(i < 10 ? 4 + random.below(2) : 300);
        for (Triangle& t : inputs.back()) {
            // Small beside the whole, else all of them would straddle.
            t = random.triangle(random.kind(), 3.0f);
            const osg::Vec3f offset = random.vector(random.chance(0.9f) ? 100.0f : 0.0f);
            t = {t.p0 + offset, t.p1 + offset, t.p2 + offset};
        }
    }
    // Extents overflow, so nothing straddles and each cut takes off a single triangle.
    for (float at = 0.0f; at < 5e35f; at += 1e33f)
        inputs[0].push_back({{at - 1.70141e38f, 0, 0}, {0.5e33f - 0.5f * at, 0, 0}, {1.70141e38f + at, 0, 0}});
    for (const auto& input : inputs) {
        SCOPED_TRACE(&input - inputs.data());
        BoundingVolumeTree tree;
        for (const Triangle& t : input) tree.pushTriangle(t);
        tree.build();
        Lists lists, plainLists;
        collect(tree.getRoot(), lists);
        splitPlainly({input.begin(), input.end()}, plainLists);
        const auto areIdentical = [](const Triangle& a, const Triangle& b) -> bool { return test::identical(a, b); };
        EXPECT_TRUE(std::equal(lists.begin(), lists.end(), plainLists.begin(), plainLists.end(), [&](auto& a, auto& b) {
            return std::equal(a.begin(), a.end(), b.begin(), b.end(), areIdentical);
        }));
        tree.clear();
        EXPECT_TRUE(tree.isEmpty() && tree.getTriangles().empty() && !tree.getLow() && !tree.getHigh());
    }
}

TEST(BoundingVolumeTree, TakesWorldTrianglesOfTheSubtreeAndSegments) {
    const test::SceneNode part = test::quad(1), placed = test::transform(test::translated(1, 0, 0), {part});
    const test::SceneNode scene = test::transform(test::scaled(2), {test::switchNode(1, {test::quad(7), placed})});
    const Triangle first{{2, 0, 2}, {4, 0, 2}, {4, 2, 2}}, segment{{0, 0, 0}, {1, 2, 3}, {1, 2, 3}};
    EXPECT_TRUE(test::identical(BoundingVolumeTree(part).getTriangles().front(), first));
    EXPECT_TRUE(BoundingVolumeTree(scene).isEmpty() && BoundingVolumeTree(osg::NullFC).isEmpty());
    BoundingVolumeTree tree;
    tree.build(scene, true);
    tree.build(std::list<Segment>{{segment.p0, segment.p1}});
    ASSERT_EQ(tree.getTriangles().size(), 3u);
    EXPECT_TRUE(test::identical(tree.getTriangles().front(), first));
    EXPECT_TRUE(test::identical(tree.getTriangles().back(), segment));
}

} // namespace tesk::measurement
