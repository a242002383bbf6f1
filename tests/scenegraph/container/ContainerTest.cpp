#include <OpenSG/OSGComponentTransform.h>
#include <OpenSG/OSGDistanceLOD.h>
#include <OpenSG/OSGNameIndex.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGSwitch.h>
#include <OpenSG/OSGThread.h>

#include <gtest/gtest.h>

#include <map>

namespace {

bool isAlive(osg::UInt32 id) { return osg::FieldContainerFactory::the()->getContainer(id) != osg::NullFC; }

class Container : public testing::Test {
protected:
    static void SetUpTestSuite() { osg::osgInit(0, nullptr); }
};

TEST_F(Container, IsNotMadeWhileTheSystemIsDown) {
    osg::osgExit();
    EXPECT_TRUE(osg::Node::create() == osg::NullFC);
    osg::osgInit(0, nullptr);
    osg::NodePtr node = osg::Node::create();
    EXPECT_TRUE(node != osg::NullFC);
    osg::subRefCP(node);
}

TEST_F(Container, DiesWithItsLastReference) {
    osg::NodePtr node = osg::Node::create();
    EXPECT_EQ(node.getRefCount(), 0);
    const osg::UInt32 id = node.getFieldContainerId();
    {
        osg::RefPtr<osg::NodePtr> first(node), second;
        second = first;
        EXPECT_EQ(node.getRefCount(), 2);
        second = node;
        EXPECT_EQ(node.getRefCount(), 2) << "assigning the same object changes nothing";
        first = osg::NullFC;
        EXPECT_EQ(node.getRefCount(), 1);
    }
    EXPECT_FALSE(isAlive(id));

    osg::NodePtr unheld = osg::Node::create();
    osg::subRefCP(unheld);
    EXPECT_TRUE(unheld == osg::NullFC) << "releasing the last reference nulls the variable";
}

TEST_F(Container, PointersCompareByIdentityAndNullComesFirst) {
    const osg::RefPtr<osg::NodePtr> held(osg::Node::create());
    const osg::AttachmentContainerPtr base = held.get();
    EXPECT_TRUE(base == held.get());
    EXPECT_TRUE(held == base);
    EXPECT_FALSE(held.get() < osg::NullFC);
    EXPECT_TRUE(osg::NodePtr() < held.get());
    std::map<osg::NodePtr, int> byNode;
    byNode[held] = 1;
    byNode[osg::NullFC] = 2;
    EXPECT_EQ(byNode.begin()->second, 2);
}

TEST_F(Container, CastsAlongTheAncestry) {
    const osg::RefPtr<osg::ComponentTransformPtr> core(osg::ComponentTransform::create());
    const osg::NodeCorePtr base = core.get();
    EXPECT_TRUE(osg::TransformPtr::dcast(base) == core);
    EXPECT_TRUE(osg::GroupPtr::dcast(base) == core);
    EXPECT_TRUE(osg::SwitchPtr::dcast(base) == osg::NullFC);
    EXPECT_TRUE(osg::SwitchPtr::dcast(osg::NodeCorePtr()) == osg::NullFC);

    const struct {
        osg::FieldContainerType& type;
        std::vector<std::string> chain;
    } rows[] = {
        {osg::Node::getClassType(), {"Node", "AttachmentContainer", "FieldContainer"}},
        {osg::Switch::getClassType(), {"Switch", "Group", "NodeCore", "AttachmentContainer", "FieldContainer"}},
        {osg::DistanceLOD::getClassType(),
         {"DistanceLOD", "Group", "NodeCore", "AttachmentContainer", "FieldContainer"}},
        {core->getType(),
         {"ComponentTransform", "Transform", "Group", "NodeCore", "AttachmentContainer", "FieldContainer"}},
        {osg::Name::getClassType(), {"Name", "Attachment", "FieldContainer"}},
    };
    for (const auto& row : rows) {
        std::vector<std::string> chain;
        for (const osg::FieldContainerType* type = &row.type; type; type = type->getParent())
            chain.push_back(type->getCName());
        EXPECT_EQ(chain, row.chain);
    }
    EXPECT_TRUE(osg::Switch::getClassType().isNodeCore());
    EXPECT_FALSE(osg::Switch::getClassType().isNode());
}

TEST_F(Container, ChangesAreRecordedOnlyWhenAskedFor) {
    osg::ChangeList& list = *osg::Thread::getCurrentChangeList();
    list.clearAll();
    const osg::RefPtr<osg::NodePtr> parent(osg::makeCoredNode<osg::Group>());
    osg::endEditCP(parent);
    EXPECT_TRUE(list.empty()) << "read-only by default";

    const osg::NodePtr child = osg::Node::create();
    const osg::UInt32 childId = child.getFieldContainerId(), parentId = parent.get().getFieldContainerId();
    list.setReadOnly(false);
    {
        const osg::CPEditor edit(parent, osg::Node::ChildrenFieldMask);
        parent->addChild(child);
    }
    const std::vector<osg::ChangeList::ChangedEntry> expected{{childId, osg::Node::ParentFieldMask},
                                                              {parentId, osg::Node::ChildrenFieldMask}};
    EXPECT_EQ(std::vector<osg::ChangeList::ChangedEntry>(list.beginChanged(), list.endChanged()), expected);
    EXPECT_EQ(std::vector<osg::UInt32>(list.beginAddRefd(), list.endAddRefd()), std::vector<osg::UInt32>{childId});
    EXPECT_EQ(list.sizeSubRefd(), 0u);
    list.setReadOnly(true);
    list.clearAll();
}

TEST_F(Container, NamesNodesAndCores) {
    const osg::RefPtr<osg::NodePtr> node(osg::makeCoredNode<osg::Group>());
    EXPECT_EQ(osg::getName(node), nullptr);
    EXPECT_EQ(osg::getName(osg::NodePtr()), nullptr);
    osg::setName(node, "");
    EXPECT_STREQ(osg::getName(node), "") << "the empty text is a name";
    osg::setName(node->getCore(), "core");
    osg::setName(node, "node");
    EXPECT_STREQ(osg::getName(node->getCore()), "core");
    osg::setName(node, static_cast<const osg::Char8*>(nullptr));
    EXPECT_EQ(osg::getName(node), nullptr);
}

TEST_F(Container, ReplacesAttachmentsOfOneGroupAndBinding) {
    const osg::RefPtr<osg::NodePtr> node(osg::Node::create());
    const osg::NamePtr first = osg::Name::create(), second = osg::Name::create(), other = osg::Name::create();
    const osg::UInt32 firstId = first.getFieldContainerId();
    node->addAttachment(first);
    node->addAttachment(first);
    EXPECT_EQ(first.getRefCount(), 1) << "replaced by itself";
    node->addAttachment(other, 7);
    node->addAttachment(second);
    EXPECT_FALSE(isAlive(firstId));
    EXPECT_TRUE(node->findAttachment(osg::Name::getClassType()) == second);
    EXPECT_TRUE(node->findAttachment(osg::Name::getClassType(), 7) == other);
    EXPECT_EQ(second->findParent(node), 0);
}

TEST_F(Container, IndexFollowsNames) {
    const auto containersNamed = [](const char* name) { return osg::NameIndex::find(name).size(); };
    osg::RefPtr<osg::NodePtr> a(osg::Node::create()), b(osg::Node::create());
    osg::setName(a, "bolt");
    osg::setName(b, "bolt");
    EXPECT_EQ(containersNamed("bolt"), 2u);
    osg::setName(a, "nut");
    EXPECT_EQ(containersNamed("bolt"), 1u);
    EXPECT_EQ(containersNamed("nut"), 1u);

    // One attachment shared by two nodes, its text changed by hand.
    const osg::NamePtr shared = osg::NamePtr::dcast(a->findAttachment(osg::Name::getClassType()));
    b->addAttachment(shared);
    shared->getFieldPtr()->setValue("washer");
    osg::endEditCP(shared);
    EXPECT_EQ(containersNamed("washer"), 2u);
    EXPECT_EQ(containersNamed("nut"), 0u);
    EXPECT_EQ(containersNamed("bolt"), 0u);

    const osg::NamePtr aside = osg::Name::create();
    aside->getFieldPtr()->setValue("aside");
    a->addAttachment(aside, 1);
    EXPECT_EQ(containersNamed("aside"), 0u) << "only binding 0 is a name";
    a = osg::NullFC;
    EXPECT_EQ(containersNamed("washer"), 1u);
    b = osg::NullFC;
    EXPECT_EQ(containersNamed("washer"), 0u);
}

} // namespace
