#include <OpenSG/OSGDistanceLOD.h>
#include <OpenSG/OSGIntersectAction.h>
#include <OpenSG/OSGSimpleGeometry.h>
#include <OpenSG/OSGSwitch.h>
#include <OpenSG/OSGTransform.h>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

using osg::NodePtr;
using osg::Pnt3f;
using osg::Vec3f;

const osg::Line downwards(Pnt3f(0, 0, 10), Vec3f(0, 0, -1));

template <class Core> NodePtr above(const std::vector<NodePtr>& children) {
    const NodePtr node = osg::makeCoredNode<Core>();
    for (const NodePtr& child : children) node->addChild(child);
    return node;
}

NodePtr placed(float z, const Vec3f& scale, const NodePtr& child) {
    const NodePtr node = above<osg::Transform>({child});
    osg::TransformPtr::dcast(node->getCore())->getMatrix().setTransform(Vec3f(0, 0, z), osg::Quaternion(), scale);
    return node;
}

/// Two triangles that meet on the z axis.
NodePtr squareAt(float z) { return placed(z, Vec3f(1, 1, 1), osg::makePlane(2, 2, 1, 1)); }

class IntersectAction : public testing::Test {
protected:
    static void SetUpTestSuite() { osg::osgInit(0, nullptr); }
    /// Distance along the line, -1 for none.
    float pick(const NodePtr& root, const osg::Line& line = downwards, float greatest = osg::Inf) {
        scene = root;
        action->setLine(line, greatest);
        action->apply(root);
        return action->getHitT();
    }
    osg::NodeRefPtr scene;
    const std::unique_ptr<osg::IntersectAction> action{osg::IntersectAction::create()};
};

TEST_F(IntersectAction, HitsTheNearestFromBothSidesAndOfEqualsTheLater) {
    const osg::NodeRefPtr root(above<osg::Group>({squareAt(0), squareAt(4), squareAt(4), squareAt(2)}));
    const Vec3f up(0, 0, 1);
    EXPECT_EQ(pick(root, downwards, 5.99f), -1.0f);
    EXPECT_EQ(pick(root, downwards, 6.0f), 6.0f);
    EXPECT_TRUE(action->getHitObject() == root->getChild(2)->getChild(0));
    EXPECT_EQ(action->getHitTriangle(), 1);
    EXPECT_EQ(pick(root, osg::Line(Pnt3f(0, 0, 1), up)), 1.0f);
    EXPECT_EQ(pick(root, osg::Line(Pnt3f(0, 0, 5), up)), -1.0f);
}

TEST_F(IntersectAction, FollowsTheMaskAndTheChosenChild) {
    const osg::NodeRefPtr node(above<osg::Switch>({squareAt(1), squareAt(2)}));
    for (const auto& [choice, distance] :
         {std::pair(osg::Switch::NONE, -1.0f), {osg::Switch::ALL, 8.0f}, {0, 9.0f}, {1, 8.0f}, {2, -1.0f}}) {
        osg::SwitchPtr::dcast(node->getCore())->setChoice(choice);
        EXPECT_EQ(pick(node), distance) << choice;
    }
    EXPECT_EQ(pick(above<osg::DistanceLOD>({squareAt(2), squareAt(3)})), 7.0f);
    scene->getChild(1)->setTravMask(2);
    action->setTravMask(1);
    EXPECT_EQ(pick(scene.get()), 8.0f);
}

TEST_F(IntersectAction, TakesTheLineThroughTransformsOfAnySize) {
    for (const float scale : {1e-9f, 1e-7f, 1.0f, 1e7f, 1e9f, 0.0f}) {
        const NodePtr first = placed(1, Vec3f(scale, scale, scale), osg::makePlane(2, 2, 1, 1));
        EXPECT_NEAR(pick(above<osg::Group>({first, squareAt(2)})), 8.0f, 1e-4f) << scale;
        EXPECT_TRUE(action->getHitPoint().equals(Pnt3f(0, 0, 2), 1e-3f)) << scale << ": " << action->getHitPoint();
    }
    const osg::Line oblique(Pnt3f(3, 0, 12), Vec3f(-3, 0, -4));
    EXPECT_FLOAT_EQ(pick(placed(6, Vec3f(1, 2, 3), squareAt(2)), oblique, 1e3f), -1.0f) << "meets z = 12 beside it";
    EXPECT_FLOAT_EQ(pick(placed(2, Vec3f(1, 2, 3), squareAt(2)), oblique, 1e3f), 5.0f);
    EXPECT_TRUE(action->getHitPoint().equals(Pnt3f(0, 0, 8), 1e-5f));
    EXPECT_FLOAT_EQ(action->getMaxDist(), 1e3f);
}

} // namespace
