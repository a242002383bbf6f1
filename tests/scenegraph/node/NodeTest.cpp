#include <OpenSG/OSGComponentTransform.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGTransform.h>

#include <gtest/gtest.h>

namespace {

osg::Matrix translated(float x, float y, float z) {
    osg::Matrix matrix;
    matrix.setTranslate(x, y, z);
    return matrix;
}

osg::NodePtr transformNode(const osg::Matrix& matrix) {
    osg::TransformPtr core;
    const osg::NodePtr node = osg::makeCoredNode<osg::Transform>(&core);
    core->setMatrix(matrix);
    return node;
}

class Node : public testing::Test {
protected:
    static void SetUpTestSuite() { osg::osgInit(0, nullptr); }

    osg::NodePtr childOf(const osg::NodePtr& parentNode) {
        const osg::NodePtr child = osg::makeCoredNode<osg::Group>();
        parentNode->addChild(child);
        return child;
    }
    std::vector<osg::NodePtr> childrenOf(const osg::NodePtr& node) {
        return std::vector<osg::NodePtr>(node->getMFChildren()->begin(), node->getMFChildren()->end());
    }

    osg::RefPtr<osg::NodePtr> parent{osg::makeCoredNode<osg::Group>()};
};

TEST_F(Node, HoldsItsChildrenAndLosesThemOnRemoval) {
    osg::NodePtr child = childOf(parent);
    EXPECT_EQ(child.getRefCount(), 1);
    EXPECT_TRUE(child->getParent() == parent);

    const osg::RefPtr<osg::NodePtr> held(childOf(parent));
    parent->subChild(held);
    EXPECT_TRUE(held->getParent() == osg::NullFC);
    EXPECT_EQ(held.get().getRefCount(), 1);

    parent->subChild(child);
    EXPECT_TRUE(child == osg::NullFC) << "destroyed, and the variable knows";
    parent->subChild(held);
    EXPECT_EQ(parent->getNChildren(), 0u) << "removing a node that is no child only warns";

    // The pointer passed stands in the children field itself.
    const osg::NodePtr first = childOf(parent), second = childOf(parent);
    const osg::UInt32 firstId = first.getFieldContainerId();
    parent->subChild((*parent->getMFChildren())[0]);
    EXPECT_TRUE(osg::FieldContainerFactory::the()->getContainer(firstId) == osg::NullFC);
    EXPECT_EQ(childrenOf(parent), std::vector<osg::NodePtr>{second});
}

TEST_F(Node, HasOneParentAndMovesBetweenThem) {
    const osg::RefPtr<osg::NodePtr> other(osg::makeCoredNode<osg::Group>());
    const osg::NodePtr a = childOf(parent), b = childOf(parent), c = childOf(parent);
    parent->addChild(a);
    EXPECT_EQ(childrenOf(parent), (std::vector<osg::NodePtr>{b, c, a})) << "added again: moved to the end";
    parent->insertChild(0, a);
    EXPECT_EQ(childrenOf(parent), (std::vector<osg::NodePtr>{a, b, c}));
    other->addChild(b);
    EXPECT_EQ(childrenOf(parent), (std::vector<osg::NodePtr>{a, c}));
    EXPECT_TRUE(b->getParent() == other);
    EXPECT_EQ(b.getRefCount(), 1);
    EXPECT_TRUE(parent->replaceChildBy(c, b));
    EXPECT_EQ(childrenOf(parent), (std::vector<osg::NodePtr>{a, b}));
    EXPECT_FALSE(parent->replaceChildBy(other, a));
    EXPECT_EQ(parent->findChild(b), 1);
    EXPECT_EQ(parent->findChild(other), -1);
    parent->addChild(osg::NullFC);
    EXPECT_EQ(parent->getNChildren(), 2u);
}

TEST_F(Node, DestructionFreesTheCoreAndOrphansTheChildren) {
    const osg::NodePtr sharedUser = osg::makeNodeFor(parent->getCore());
    const osg::RefPtr<osg::NodePtr> keep(sharedUser);
    const osg::NodeCorePtr core = parent->getCore();
    EXPECT_EQ(core->getParents().size(), 2u);
    const osg::RefPtr<osg::NodePtr> survivor(childOf(parent));
    const osg::UInt32 mortal = childOf(parent).getFieldContainerId();
    parent = osg::NullFC;
    EXPECT_TRUE(survivor->getParent() == osg::NullFC);
    EXPECT_TRUE(osg::FieldContainerFactory::the()->getContainer(mortal) == osg::NullFC);
    EXPECT_EQ(core->getParents().size(), 1u);
    EXPECT_EQ(core.getRefCount(), 1);
    keep->setCore(core);
    EXPECT_EQ(core.getRefCount(), 1) << "setting the same core again changes nothing";
}

TEST_F(Node, ActiveMeansAllBitsOfTheMask) {
    parent->setTravMask(1);
    EXPECT_FALSE(parent->getActive());
    parent->setActive(true);
    EXPECT_EQ(parent->getTravMask(), 0xffffffffu);
    parent->setActive(false);
    EXPECT_EQ(parent->getTravMask(), 0u);
}

TEST_F(Node, ToWorldIsLiveAndParentFirst) {
    osg::Matrix scale;
    scale.setScale(2.0f);
    const osg::NodePtr outer = transformNode(scale), bare = osg::Node::create(),
                       inner = transformNode(translated(1, 0, 0));
    parent->addChild(outer);
    outer->addChild(bare);
    bare->addChild(inner);
    osg::Pnt3f point(0, 0, 0);
    inner->getToWorld().multMatrixPnt(point);
    EXPECT_EQ(point, osg::Pnt3f(2, 0, 0));

    osg::TransformPtr::dcast(outer->getCore())->getMatrix().setScale(3.0f);
    point.setValues(0, 0, 0);
    inner->getToWorld().multMatrixPnt(point);
    EXPECT_EQ(point, osg::Pnt3f(3, 0, 0)) << "no edit needed";
}

TEST_F(Node, ComponentsBecomeAMatrixWhenTheEditEnds) {
    osg::ComponentTransformPtr core;
    const osg::RefPtr<osg::NodePtr> node(osg::makeCoredNode<osg::ComponentTransform>(&core));
    core->setCenter(osg::Vec3f(1, 0, 0));
    core->setRotation(osg::Quaternion(osg::Vec3f(0, 0, 1), osg::Pi / 2));
    core->setTranslation(osg::Vec3f(0, 0, 5));
    EXPECT_EQ(node->getToWorld(), osg::Matrix::identity());
    osg::endEditCP(core, osg::ComponentTransform::RotationFieldMask);
    osg::Pnt3f point(2, 0, 0);
    node->getToWorld().multMatrixPnt(point);
    EXPECT_TRUE(point.equals(osg::Pnt3f(1, 1, 5), 1e-6f)) << point;
}

TEST_F(Node, WithoutContentIsEmptyAtTheOrigin) {
    // A group without content, also under a transform, reports an empty volume at the origin.
    parent->addChild(transformNode(translated(100, 0, 0)));
    osg::DynamicVolume volume;
    parent->getWorldVolume(volume);
    EXPECT_TRUE(volume.isValid());
    EXPECT_TRUE(volume.isEmpty());
    EXPECT_EQ(volume.getMin(), osg::Pnt3f(0, 0, 0));
    EXPECT_EQ(volume.getMax(), osg::Pnt3f(0, 0, 0));
    EXPECT_FALSE(osg::RefPtr<osg::NodePtr>(osg::Node::create())->getVolume().isValid()) << "a fresh node's cache";
}

} // namespace
