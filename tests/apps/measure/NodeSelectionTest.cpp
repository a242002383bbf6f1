#include <apps/measure/NodeSelection.h>

#include <apps/measure/Failure.h>
#include <support/Scenes.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <gtest/gtest.h>

namespace tesk::measure {

namespace {

using test::group;
using test::named;
using test::quad;

SceneFile sceneFile(const std::string& path, const std::vector<std::string>& nodes) {
    test::SceneNodes children;
    for (const std::string& name : nodes) children.push_back(named(quad(0.0f), name));
    SceneFile file;
    file.path = path;
    file.root = group(children).get();
    return file;
}

class NodeSelection : public testing::Test {
protected:
    static void SetUpTestSuite() { osg::osgInit(0, nullptr); }

    static std::vector<SceneFile> assembly() {
        return {sceneFile("old/part.stl", {"nut", "cap#1"}), sceneFile("new/part.stl", {"nut", "rotor"}),
                sceneFile("rotor.obj", {"blade", "part.stl"}), sceneFile("a#b.ply", {"c"})};
    }

    /// What the text chooses, or the failure's text.
    std::string choose(const std::string& text) const {
        try {
            const CatalogueNode& node = selectNode(catalogue, text);
            return catalogue.getFiles()[node.file].path + (node.isFileRoot() ? "" : "#" + node.nameInFile);
        } catch (const Failure& failure) {
            return failure.what();
        }
    }

    const SceneCatalogue catalogue{assembly()};
};

} // namespace

TEST_F(NodeSelection, TakesTheFirstRuleThatFits) {
    const struct {
        const char* text;
        const char* chosen;
    } rows[] = {
        {"old/part.stl", "old/part.stl"},
        {"rotor.obj", "rotor.obj"},
        {"a#b", "a#b.ply"},
        {"blade", "rotor.obj#blade"},
        {"cap#1", "old/part.stl#cap#1"},
        {"nut", "old/part.stl#nut"},
        {"nut-2", "new/part.stl#nut"},
        {"new/part.stl#nut", "new/part.stl#nut"},
        {"new/part.stl#nut-2", "new/part.stl#nut"},
        {"part.stl#rotor", "new/part.stl#rotor"},
        {"part#cap#1", "old/part.stl#cap#1"},
        {"rotor#part.stl", "rotor.obj#part.stl"},
        {"a#b#c", "a#b.ply#c"},
    };
    for (const auto& row : rows) EXPECT_EQ(choose(row.text), row.chosen) << row.text;
}

TEST_F(NodeSelection, SaysHowToTellAmbiguousNodesApart) {
    EXPECT_EQ(choose("part.stl"), "'part.stl' means 2 nodes: 'old/part.stl', 'new/part.stl'");
    EXPECT_EQ(choose("rotor"), "'rotor' means 2 nodes: 'rotor.obj', 'new/part.stl#rotor'");
    EXPECT_EQ(choose("part#nut"), "'part#nut' means 2 nodes: 'old/part.stl#nut', 'new/part.stl#nut-2'");
}

TEST_F(NodeSelection, SuggestsNearNamesForUnknownOnes) {
    EXPECT_EQ(choose("BLADES"), "unknown node 'BLADES'; did you mean 'blade'?");
    EXPECT_EQ(choose("rotor#lade"), "unknown node 'rotor#lade'; did you mean 'blade'?");
    EXPECT_EQ(choose("gearbox"), "unknown node 'gearbox'; 'tesk-measure list' shows the names");
    EXPECT_EQ(choose(""), "unknown node ''; 'tesk-measure list' shows the names");
}

TEST_F(NodeSelection, FindsEveryNodeByTheNameThatTheCatalogueGives) {
    for (const CatalogueNode& node : catalogue.getNodes()) {
        const std::string spelling = catalogue.getFiles()[node.file].path + "#" + node.name;
        EXPECT_EQ(&selectNode(catalogue, spelling), &node) << spelling;
    }
}

TEST_F(NodeSelection, CountsWhatIsBelow) {
    const CatalogueNode& root = catalogue.getFileRoot(0);
    EXPECT_EQ(root.content.triangles, 4u);
    EXPECT_EQ(root.content.properTriangles, 4u);
    EXPECT_TRUE(catalogue.isSameOrBelow(selectNode(catalogue, "nut"), root));
    EXPECT_FALSE(catalogue.isSameOrBelow(selectNode(catalogue, "nut-2"), root));
}

} // namespace tesk::measure
