#include <OpenSG/OSGDistanceLOD.h>
#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSimpleGeometry.h>
#include <OpenSG/OSGSwitch.h>
#include <OpenSG/OSGTransform.h>

#include <gtest/gtest.h>

namespace {

/// The x extent of a node's world volume; all scenes here lie along x.
struct Extent {
    bool isValid, isEmpty;
    float min, max;

    friend bool operator==(const Extent& a, const Extent& b) {
        return a.isValid == b.isValid && a.isEmpty == b.isEmpty && a.min == b.min && a.max == b.max;
    }
    friend std::ostream& operator<<(std::ostream& out, const Extent& extent) {
        return out << (extent.isValid ? "valid " : "invalid ") << (extent.isEmpty ? "empty " : "") << extent.min << ".."
                   << extent.max;
    }
};

Extent full(float min, float max) { return {true, false, min, max}; }

Extent extentOf(const osg::NodePtr& node) {
    osg::DynamicVolume volume;
    node->getWorldVolume(volume);
    return {volume.isValid(), volume.isEmpty(), volume.getMin()[0], volume.getMax()[0]};
}

void hide(const osg::NodePtr& node) {
    const osg::CPEditor edit(node, osg::Node::TravMaskFieldMask);
    node->setTravMask(0);
}

/// A cube of edge 2 at the place given on the x axis, below a transform.
osg::NodePtr cubeAt(float x, osg::TransformPtr* coreOut = nullptr) {
    osg::TransformPtr core;
    const osg::NodePtr node = osg::makeCoredNode<osg::Transform>(&core);
    core->getMatrix().setTranslate(x, 0, 0);
    node->addChild(osg::makeBox(2, 2, 2, 1, 1, 1));
    if (coreOut) *coreOut = core;
    return node;
}

class NodeVolume : public testing::Test {
protected:
    static void SetUpTestSuite() { osg::osgInit(0, nullptr); }

    osg::RefPtr<osg::NodePtr> root{osg::makeCoredNode<osg::Group>()};
};

TEST_F(NodeVolume, IsTheUnionOfAllChildrenWhateverTheChoice) {
    for (const osg::NodeCorePtr core : {osg::NodeCorePtr(osg::Group::create()), osg::NodeCorePtr(osg::Switch::create()),
                                        osg::NodeCorePtr(osg::DistanceLOD::create()), osg::NodeCorePtr()}) {
        const osg::NodePtr node = osg::makeNodeFor(core);
        root->addChild(node);
        node->addChild(cubeAt(0));
        node->addChild(cubeAt(10));
        EXPECT_EQ(extentOf(node), full(-1, 11));
    }
}

TEST_F(NodeVolume, KeepsItsLastBoundsWhenContentGoes) {
    root->addChild(cubeAt(10));
    EXPECT_EQ(extentOf(root), full(9, 11));
    root->subChild(0u);
    EXPECT_EQ(extentOf(root), (Extent{true, true, 9, 11}));
    root->addChild(cubeAt(20));
    EXPECT_EQ(extentOf(root), full(19, 21)) << "old bounds of an empty volume do not come back";
}

TEST_F(NodeVolume, LeavesHiddenChildrenOutOnceTheEditEnds) {
    const osg::NodePtr near = cubeAt(0), far = cubeAt(10);
    root->addChild(near);
    root->addChild(far);
    EXPECT_EQ(extentOf(root), full(-1, 11));
    far->setTravMask(0);
    EXPECT_EQ(extentOf(root), full(-1, 11)) << "stale until the edit ends";
    hide(far);
    EXPECT_EQ(extentOf(root), full(-1, 1));
    EXPECT_EQ(extentOf(far), full(9, 11)) << "the hidden node keeps what it had";
    hide(near);
    EXPECT_EQ(extentOf(root), (Extent{true, true, -1, 1}));
    near->setTravMask(1);
    osg::endEditCP(near, osg::Node::TravMaskFieldMask);
    EXPECT_EQ(extentOf(root), full(-1, 1)) << "any bit makes it visible";
}

TEST_F(NodeVolume, IsNeverComputedForAHiddenNode) {
    const osg::NodePtr hidden = cubeAt(10);
    root->addChild(hidden);
    hide(hidden);
    EXPECT_EQ(extentOf(hidden), (Extent{false, true, 0, 0}));
    EXPECT_EQ(extentOf(root), (Extent{true, true, 0, 0}));

    hide(root);
    root->addChild(cubeAt(20));
    EXPECT_FALSE(extentOf(root).isValid);
    root->setTravMask(0xffffffff);
    EXPECT_EQ(extentOf(root), full(19, 21));
}

TEST_F(NodeVolume, FollowsMovesAtOnceBelowAndAfterTheEditAbove) {
    osg::TransformPtr transform;
    const osg::NodePtr moved = cubeAt(100, &transform);
    root->addChild(moved);
    const osg::NodePtr cube = moved->getChild(0);
    EXPECT_EQ(extentOf(moved), full(99, 101));
    EXPECT_EQ(extentOf(cube), full(99, 101));
    EXPECT_EQ(cube->getVolume().getMin()[0], -1.0f) << "local";

    transform->getMatrix().setTranslate(200, 0, 0);
    EXPECT_EQ(extentOf(cube), full(199, 201));
    EXPECT_EQ(extentOf(root), full(99, 101));
    osg::endEditCP(transform, osg::Transform::MatrixFieldMask);
    EXPECT_EQ(extentOf(root), full(199, 201));
}

TEST_F(NodeVolume, StaysWhenStatic) {
    root->addChild(cubeAt(0));
    extentOf(root);
    root->getVolume(false).setStatic();
    root->addChild(cubeAt(10));
    EXPECT_EQ(extentOf(root), full(-1, 1));
}

TEST_F(NodeVolume, WorksInVeryDeepScenes) {
    osg::NodePtr deepest = root;
    for (int depth = 0; depth < 200000; ++depth) {
        const osg::NodePtr next = osg::makeCoredNode<osg::Group>();
        deepest->addChild(next);
        deepest = next;
    }
    deepest->addChild(cubeAt(5));
    EXPECT_EQ(extentOf(root), full(4, 6));
}

} // namespace
