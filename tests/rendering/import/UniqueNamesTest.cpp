#include <rendering/import/UniqueNames.h>

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <gtest/gtest.h>

#include "MeshFiles.h"

namespace tesk::rendering {

namespace {

osg::NodePtr createNode(const char* name, std::initializer_list<osg::NodePtr> children = {}) {
    const osg::NodePtr node = osg::makeCoredNode<osg::Group>();
    osg::setName(node, name);
    for (const osg::NodePtr& child : children) node->addChild(child);
    return node;
}

} // namespace

TEST(MakeNamesUnique, KeepsFirstNamesAndAvoidsThoseInUse) {
    osg::osgInit(0, nullptr);
    // The group with two nuts comes first, but nut-2 keeps the name that it came with.
    const osg::NodeRefPtr root(
        createNode("nut", {createNode("frame", {createNode("nut"), createNode("nut")}), createNode("nut-2"),
                           createNode(""), createNode("frame"), createNode("frame")}));
    osg::setName(root->getChild(2), static_cast<const char*>(nullptr));
    const std::vector<std::string> expected{"another nut is called nut-3", "another nut is called nut-4",
                                            "unnamed node is called group", "another frame is called frame-2",
                                            "another frame is called frame-3"};
    EXPECT_EQ(makeNamesUnique(root), expected);
    EXPECT_EQ(test::dump(root), "nut [frame [nut-3, nut-4], nut-2, group, frame-2, frame-3]");
    EXPECT_TRUE(makeNamesUnique(root).empty());
    EXPECT_TRUE(makeNamesUnique(osg::NullFC).empty());
}

} // namespace tesk::rendering
