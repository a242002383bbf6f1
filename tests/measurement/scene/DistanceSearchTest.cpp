#include <measurement/geometry/DistanceTriangleTriangle.h>
#include <measurement/scene/DistanceBoundingVolumeTree.h>
#include <measurement/scene/ObjectObjectDistanceCalculator.h>
#include <measurement/scene/PointObjectDistanceCalculator.h>

#include <support/BruteForce.h>
#include <support/Primitives.h>
#include <support/Random.h>
#include <support/Scenes.h>

#include <OpenSG/OSGQuaternion.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <algorithm>
#include <cmath>

namespace tesk::measurement {

namespace {

using test::group;
using test::quad;
using test::transform;

constexpr float unbounded = 3.4028235e38f;

/// All world triangles of a subtree in one list.
struct Unsplit : BoundingVolumeTree {
    explicit Unsplit(const osg::NodePtr& node) { buildRec(node, true); }
};

/// The squared distance of the closest pair; checks that some pair answers as the calculator does, to the bit.
float checkPairs(const osg::NodePtr& node1, const osg::NodePtr& node2, const ObjectObjectDistanceCalculator& answer) {
    float smallest = unbounded;
    bool isAnswer = false;
    DistanceTriangleTriangle query({}, {});
    const Unsplit object1(node1), object2(node2);
    for (const Triangle& a : object1.getTriangles()) {
        for (const Triangle& b : object2.getTriangles()) {
            query.calcDistance(a, b);
            smallest = std::min(smallest, query.getSquaredDistance());
            isAnswer = isAnswer || (query.getSquaredDistance() == answer.getSquaredDistance() &&
                                    test::identical(query.getClosestPoint1(), answer.getPoint1()) &&
                                    test::identical(query.getClosestPoint2(), answer.getPoint2()));
        }
    }
    EXPECT_TRUE(isAnswer) << answer.getPoint1() << " and " << answer.getPoint2();
    return smallest;
}

osg::Matrix randomPlacement(test::Random& random) {
    osg::Matrix matrix;
    matrix.setRotate(osg::Quaternion(random.vector(1.0f), 2.0f));
    matrix.setTranslate(random.point(4.0f));
    return matrix;
}

/// Rigid placements, switches that show something, triangles of one kind in the leaves.
test::SceneNode randomScene(test::Random& random, int depth, test::Kind kind) {
    if (depth == 0) {
        std::vector<Triangle> triangles(1 + random.below(12));
        for (Triangle& t : triangles) t = random.triangle(kind, 1.0f);
        return test::triangles(triangles);
    }
    test::SceneNodes children;
    for (std::uint32_t i = 1 + random.below(3); i > 0; --i) children.push_back(randomScene(random, depth - 1, kind));
    const std::uint32_t core = random.below(4);
    if (core == 0) return test::switchNode(random.chance(0.3f) ? -2 : osg::Int32(random.below(4)), children);
    if (core == 1) return test::lod(children);
    return core == 2 ? group(children) : transform(randomPlacement(random), children);
}

} // namespace

TEST(DistanceBoundingVolumeTree, KeepsTheBoundThatNothingUndercuts) {
    BoundingVolumeTree level, above, crossing, empty;
    level.pushTriangle({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
    above.pushTriangle({{0, 0, 3}, {1, 0, 3}, {0, 1, 3}});
    crossing.pushTriangle({{0.1f, 0.1f, 5}, {0.2f, 0.2f, 5}, {0.1f, 0.1f, -5}});
    const struct {
        const BoundingVolumeTree& second;
        float bound, squaredDistance, z;
        const char* text;
    } rows[] = {{above, unbounded, 9, 3, ""},
                {above, 9.5f, 9, 3, ""},
                {above, 9, 9, 0, ""},
                {above, 4, 4, 0, ""},
                {level, 0, 0, 0, ""},
                {empty, 5, 5, 0, ""},
                {crossing, unbounded, 0, 0, "Zero distance with tri!\n"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.bound);
        testing::internal::CaptureStdout();
        const DistanceBoundingVolumeTree search(level, row.second, row.bound);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), row.text);
        EXPECT_EQ(search.getSquaredDistance(), row.squaredDistance);
        EXPECT_EQ(search.getClosestPoint2()[2], row.z);
    }
}

TEST(ObjectObjectDistanceCalculator, AgreesWithAllPairs) {
    test::Random random(5);
    ObjectObjectDistanceCalculator calculator;
    const int runs = 500;
    int found = 0, apart = 0;
    for (int run = 0; run < runs && !testing::Test::HasFailure(); ++run) {
        SCOPED_TRACE(run);
        const test::Kind kind = random.chance(0.5f) ? test::Kind::ordinary : random.kind();
        const test::SceneNode first = randomScene(random, 3, kind), second = randomScene(random, 3, kind);
        const test::SceneNode scene = group({first, transform(randomPlacement(random), {second})});
        const osg::Pnt3f previous = calculator.getPoint1();
        testing::internal::CaptureStdout();
        calculator.calc(first, second);
        testing::internal::GetCapturedStdout();
        // Where triangles collapse to points, boxes may set the bound and leave no points.
        if (calculator.getPoint1().isZero() || test::identical(calculator.getPoint1(), previous)) continue;
        ++found;
        checkPairs(calculator.getNode1(), calculator.getNode2(), calculator);
        const float smallest = checkPairs(first, second, calculator);
        // Degenerate triangles may claim to be closer than the boxes allow.
        if (kind != test::Kind::ordinary) continue;
        EXPECT_LE(std::sqrt(calculator.getSquaredDistance()), std::sqrt(smallest) + 1e-3f);
        apart += smallest > 1e-6f;
    }
    EXPECT_GT(found, runs * 8 / 10);
    EXPECT_GT(apart, runs / 10);
}

TEST(ObjectObjectDistanceCalculator, MeasuresLeavesThatTheEnumeratorShows) {
    const test::SceneNode above = transform(test::translated(0, 0, 9), {quad(0)}), parent = quad(3);
    parent->addChild(group({}));
    const struct {
        const char* what;
        test::SceneNode object;
        float squaredDistance, z;
    } rows[] = {{"chosen child", test::switchNode(1, {quad(1), quad(5)}), 16, 5},
                {"finest level", test::lod({quad(2), quad(5)}), 49, 2},
                // Deliberate: the boxes set the bound, and they hold the hidden children too.
                {"nothing chosen", group({test::switchNode(-1, {quad(9.5f)}), quad(5)}), 2.25f, 2},
                {"geometry with a child", parent, 38, 2},
                {"no node", test::SceneNode(), unbounded, 2},
                {"found again", quad(6), 9, 6}};
    ObjectObjectDistanceCalculator calculator;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        calculator.calc(row.object, above);
        EXPECT_EQ(calculator.getSquaredDistance(), row.squaredDistance);
        EXPECT_EQ(calculator.getPoint1()[2], row.z);
    }
}

TEST(ObjectObjectDistanceCalculator, LooksIntoLittleOfDistantObjects) {
    const test::SceneNode ball = test::geometry(test::sphere(100000)), ground = test::geometry(test::terrain(100000));
    const test::SceneNode scene = transform(test::translated(0, 0, 1.5f), {ball});
    ObjectObjectDistanceCalculator calculator;
    calculator.calc(ball, ground);
    EXPECT_NEAR(std::sqrt(calculator.getSquaredDistance()), 0.4f, 0.1f);
    EXPECT_LT(calculator.getNodePairCount() + calculator.getTrianglePairCount(), 100000u);
}

TEST(PointObjectDistanceCalculator, AgreesWithBruteForce) {
    test::Random random(9);
    PointObjectDistanceCalculator calculator;
    for (int run = 0; run < 300; ++run) {
        SCOPED_TRACE(run);
        const test::SceneNode object = randomScene(random, 3, test::Kind::ordinary);
        const osg::Pnt3f point = random.point(9.0f);
        calculator.calc(point, object);
        for (const osg::NodePtr& node : {osg::NodePtr(object), calculator.getNode()}) {
            const Unsplit all(node);
            double expected = 1e30;
            for (const Triangle& t : all.getTriangles()) expected = std::min(expected, test::squaredDistance(t, point));
            EXPECT_NEAR(calculator.getPoint().dist(point), std::sqrt(expected), 1e-3);
        }
    }
}

TEST(PointObjectDistanceCalculator, FollowsItsRules) {
    const auto line = [] { return test::named(test::lines({{{0, 0, 1}, {1, 0, 1}}}), "line"); };
    const auto face = [](float z) { return test::named(quad(z), "face"); };
    const test::Mesh broken{{{0, 0, 2}, {1, 0, 2}, {0, 1, 2}}, {0, 1, 1u << 30, 0, 1, 2}};
    const struct {
        const char* rule;
        test::SceneNode object;
        std::string node;
        float z;
    } rows[] = {{"the first of equals stays", group({line(), face(-1)}), "line", 1},
                {"in either order", group({face(-1), line()}), "face", -1},
                {"only the chosen child", test::switchNode(1, {face(0), line()}), "line", 1},
                {"no point of a flat triangle", group({test::triangles({{{0, 0, 0}, {1, 0, 0}, {2, 0, 0}}}), line()}),
                 "line", 1},
                {"bad indices are left out", test::named(test::geometry(broken), "broken"), "broken", 2},
                // Deliberate: distances are compared in local units, here 1 against 5.
                {"local units", group({quad(-5), transform(test::scaled(10), {face(1)})}), "face", 10},
                {"nothing there keeps the point", group({}), "", 10},
                {"no object neither", test::SceneNode(), "", 10}};
    PointObjectDistanceCalculator calculator;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.rule);
        calculator.calc(osg::Pnt3f(0.5f, 0.0f, 0.0f), row.object);
        const osg::Char8* const name = osg::getName(calculator.getNode());
        EXPECT_EQ(name ? name : "", row.node);
        EXPECT_TRUE(test::identical(calculator.getPoint(), osg::Pnt3f(0.5f, 0.0f, row.z)));
    }
}

} // namespace tesk::measurement
