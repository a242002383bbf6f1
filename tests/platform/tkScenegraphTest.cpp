#include <platform/tkScenegraph.h>

#include <platform/detail/NameLookup.h>

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <support/Random.h>
#include <support/Scenes.h>

#include <gtest/gtest.h>

namespace tesk::test {

static const bool started = osg::osgInit(0, nullptr);

static osg::NodePtr findRecursively(const osg::NodePtr& parent, const std::string& name) {
    for (const osg::NodePtr& child : *parent->getMFChildren()) {
        const char* const ownName = osg::getName(child);
        const char* const text = ownName ? ownName : osg::getName(child->getCore());
        if (text && name == text) return child;
        const osg::NodePtr found = findRecursively(child, name);
        if (found != osg::NullFC) return found;
    }
    return osg::NullFC;
}

// Any of the changes that decide what a name finds.
static void change(const SceneNodes& nodes, Random& random) {
    const char* const names[] = {"a", "b", "c", "d", "e", "f", "", nullptr, nullptr, nullptr};
    const char* const name = names[random.below(10)];
    const osg::NodePtr node = nodes[1 + random.below(static_cast<std::uint32_t>(nodes.size() - 1))];
    const osg::NodePtr other = nodes[random.below(static_cast<std::uint32_t>(nodes.size()))];
    const std::uint32_t kind = random.below(6);
    if (kind == 0) return osg::setName(node, name);
    if (kind == 1) return osg::setName(node->getCore(), name);
    if (kind == 2) return node->setCore(name ? other->getCore() : osg::NodeCorePtr(osg::Group::create()));
    if (kind == 3 && node->getParent() != osg::NullFC && name == nullptr) return node->getParent()->subChild(node);
    for (osg::NodePtr ancestor = other; ancestor != osg::NullFC; ancestor = ancestor->getParent())
        if (ancestor == node) return;
    other->insertChild(other->getNChildren() / 2, node);
}

TEST(tkScenegraph, FindsTheSceneOnly) {
    const osg::NodePtr root = tkScenegraph::getRoot();
    const SceneNode scene = named(group({named(group({}), "")}), "scene");
    osg::setName(root, "root");
    root->addChild(scene);
    tkScenegraph::getInternalRoot()->addChild(named(group({}), "internal"));
    EXPECT_TRUE(tkScenegraph::findNode("scene") == scene);
    for (const char* const name : {"", "root", "internal", "Group", "none"})
        EXPECT_TRUE(tkScenegraph::findNode(name) == osg::NullFC) << name;
    root->subChild(scene.get());
}

TEST(tkScenegraph, FindsTheFirstInDocumentOrderAfterEveryChange) {
    Random random(11);
    const osg::NodePtr root = tkScenegraph::getRoot();
    SceneNodes nodes{SceneNode(root)};
    while (nodes.size() < 60) nodes.push_back(group({}));
    const int runs = 4000;
    int found = 0, byCore = 0;
    for (int run = 0; run < runs; ++run) {
        change(nodes, random);
        for (const std::string name : {"a", "b", "c", "d", "e", "f"}) {
            const osg::NodePtr expected = findRecursively(root, name);
            ASSERT_TRUE(tkScenegraph::findNode(name) == expected) << "run " << run << ": " << name;
            ASSERT_TRUE(platform::detail::findNamedNode(root, name) == expected) << "run " << run << ": " << name;
            found += expected != osg::NullFC;
            byCore += expected != osg::NullFC && osg::getName(expected) == nullptr;
        }
    }
    EXPECT_GT(std::min({found, byCore, 6 * runs - found}), runs / 2);
    while (root->getNChildren() > 0) root->subChild(0u);
}

} // namespace tesk::test
