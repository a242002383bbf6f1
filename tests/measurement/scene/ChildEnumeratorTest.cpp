#include <measurement/scene/ChildEnumerator.h>

#include <support/Scenes.h>

#include <gtest/gtest.h>

namespace tesk::measurement {

namespace {

using Indices = std::vector<osg::Int32>;

Indices visited(const test::SceneNode& parent) {
    Indices result;
    for (ChildEnumerator children(parent); children.hasNext();) result.push_back(parent->findChild(children.next()));
    return result;
}

} // namespace

TEST(ChildEnumerator, FollowsSwitchesAndLevelsOfDetail) {
    const auto three = [] { return test::SceneNodes{test::quad(0), test::quad(1), test::quad(2)}; };
    const std::pair<osg::Int32, Indices> choices[] = {{-3, {0}}, {-2, {0, 1, 2}}, {-1, {}}, {2, {2}}, {3, {0}}};
    for (const auto& [choice, indices] : choices)
        EXPECT_EQ(visited(test::switchNode(choice, three())), indices) << choice;
    EXPECT_EQ(visited(test::switchNode(0, {})), Indices());
    EXPECT_EQ(visited(test::group(three())), Indices({0, 1, 2}));
    EXPECT_EQ(visited(test::group({})), Indices());
    EXPECT_EQ(visited(test::lod(three())), Indices({0}));
    const test::SceneNode lod = test::lod({});
    EXPECT_EQ(visited(lod), Indices());
    lod->getMFChildren()->push_back(osg::NullFC);
    EXPECT_EQ(visited(lod), Indices());
    lod->getMFChildren()->clear();
    EXPECT_EQ(visited(test::SceneNode()), Indices());
}

} // namespace tesk::measurement
