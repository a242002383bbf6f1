#include <platform/tkNodeUtils.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGNodeCore.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <support/Scenes.h>

#include <gtest/gtest.h>

namespace tesk::test {

static const bool started = osg::osgInit(0, nullptr);

TEST(tkNodeUtils, MarksAuxiliaryNodesBesideTheirName) {
    const SceneNode node = named(group({}), "label");
    for (const bool isAuxiliary : {true, true, false, false, true}) {
        tkNodeUtils::setIsAuxiliaryNode(node, isAuxiliary);
        EXPECT_EQ(tkNodeUtils::isAuxiliaryNode(node), isAuxiliary);
        EXPECT_STREQ(osg::getName(node.get()), "label");
    }
    EXPECT_FALSE(tkNodeUtils::isAuxiliaryNode(group({node})));
    tkNodeUtils::setIsAuxiliaryNode(osg::NullFC, true);
}

TEST(tkNodeUtils, DestroysWhatNobodyElseHolds) {
    const osg::NodePtr top = osg::Node::create();
    const SceneNode kept = group({group({})});
    const SceneNode sharingCore(osg::makeNodeFor(kept->getCore()));
    top->addChild(group({kept}));
    const osg::UInt32 lost[] = {top->getChild(0).getFieldContainerId(), kept->getChild(0).getFieldContainerId(),
                                top->getChild(0)->getCore().getFieldContainerId()};
    tkNodeUtils::destroySubTree(top);
    for (const osg::UInt32 id : lost) EXPECT_TRUE(osg::FieldContainerFactory::the()->getContainer(id) == osg::NullFC);
    EXPECT_TRUE(kept->getParent() == osg::NullFC && kept->getCore() == osg::NullFC && kept->getNChildren() == 0);
    EXPECT_EQ(sharingCore->getCore()->getParents().size(), 1u);
    EXPECT_EQ(top.getRefCount(), 0);
    osg::subRefCP(top);
    tkNodeUtils::destroySubTree(osg::NullFC);
}

TEST(tkNodeUtils, DestroysDeepSubtrees) {
    const SceneNode top(osg::Node::create());
    osg::NodePtr last = top;
    for (int depth = 0; depth < 100000; ++depth) {
        last->addChild(osg::Node::create());
        last = last->getChild(0);
    }
    const osg::UInt32 deepest = last.getFieldContainerId();
    tkNodeUtils::destroySubTree(top);
    EXPECT_TRUE(osg::FieldContainerFactory::the()->getContainer(deepest) == osg::NullFC);
}

} // namespace tesk::test
