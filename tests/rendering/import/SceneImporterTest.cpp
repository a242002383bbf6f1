#include <rendering/import/SceneImporter.h>

#include <OpenSG/OSGNodeCore.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <support/Random.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <locale>

#include "MeshFiles.h"

namespace tesk::rendering {

namespace {

class SceneImporter : public testing::Test {
protected:
    static void SetUpTestSuite() { osg::osgInit(0, nullptr); }

    const test::TemporaryFolder folder;
};

const char* const formats[] = {"stl", "obj", "ply", "off", "gltf", "glb", "3mf", "dae"};

/// Writes and reads numbers as 0,5.
class CommaForPoint : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
};

} // namespace

TEST_F(SceneImporter, KeepsTreeNamesTransformsAndOrder) {
    const char* const gltfScene = "assembly [assembly [nut @1,2,3 [nut triangles 0 1 2 0 2 3], "
                                  "assembly triangles 0 1 2 0 2 3, track lines 0 1 1 2 2 3]]";
    const struct {
        const char* format;
        const char* scene;
        const char* note;
    } rows[] = {
        {"stl", "assembly [hex nut triangles 0 1 2 0 2 3, bolt triangles 0 1 2]", ""},
        {"obj", "assembly [nut triangles 0 1 2 0 2 3, track lines 0 1 1 2 2 3]", "1 point dropped"},
        {"ply", "assembly triangles 0 1 2 0 2 3 0 1 2", ""},
        {"off", "assembly triangles 0 1 2 0 2 3 0 1 2", ""},
        {"gltf", gltfScene, "1 node without triangles or lines left out"},
        {"glb", gltfScene, "1 node without triangles or lines left out"},
        {"3mf", "assembly [frame [hex \"nut\" @1,2,3 [hex \"nut\" triangles 0 1 2], hex \"nut\" triangles 0 1 2]]", ""},
        {"dae",
         "assembly [nut @1,2,3 [square triangles 0 1 2 0 2 3, square lines 0 1 1 2 2 3], "
         "assembly [square triangles 0 1 2 0 2 3, square lines 0 1 1 2 2 3]]",
         "unit not applied: coordinates are the file's own"},
    };
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaForPoint));
    for (const auto& row : rows) {
        SCOPED_TRACE(row.format);
        const std::string file = writeAssembly(folder, row.format);
        const ImportResult result = importScene(file);
        EXPECT_EQ(result.error, "");
        EXPECT_EQ(test::dump(result.root), row.scene);
        EXPECT_EQ(result.notes.empty() ? "" : result.notes.front(), *row.note ? file + ": " + row.note : "");
    }
    std::locale::global(before);

    const ImportResult shared = importScene(writeAssembly(folder, "glb"));
    const osg::NodePtr assembly = shared.root->getChild(0);
    EXPECT_EQ(assembly->getChild(0)->getChild(0)->getCore(), assembly->getChild(1)->getCore()) << "one mesh, two nodes";
}

TEST_F(SceneImporter, GivesNamesInOneLineOfUtf8) {
    const ImportResult result =
        importScene(folder.write("part.obj", "g Geh\xe4use\tM8\nv 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n"));
    EXPECT_EQ(test::dump(result.root), "part [Geh\xc3\xa4use M8 triangles 0 1 2]");
}

TEST_F(SceneImporter, NamesFileAndCauseOfFailure) {
    std::filesystem::create_directory(folder.write("folder", "") + ".stl");
    std::string levels, deepScene = test::readBytes(writeAssembly(folder, "gltf"));
    for (int node = 6; node < 1200; ++node) levels += ",{\"children\":[" + std::to_string(node) + "]}";
    deepScene.insert(deepScene.find("],\n        \"cameras\""), levels + ",{\"children\":[0]}");
    deepScene.replace(deepScene.find("[0]"), 3, "[5]");
    const struct {
        std::string file;
        const char* cause;
    } rows[] = {
        {"/nowhere/part.stl", "no such file"},
        {folder.write("folder", "") + ".stl", "is a directory"},
        {"/dev/null", "not a regular file"},
        {folder.write("part.doc", "text"), "unknown kind of file '.doc', known are stl, obj, "},
        {folder.write("part", "text"), "unknown kind of file '', known are stl, obj, "},
        {folder.write("empty.ply", ""), "empty file"},
        {folder.write("text.gltf", "text"), "not a readable mesh: "},
        {folder.write("text.3mf", "text"), "not a readable mesh: "},
        {folder.write("points.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\n"), "no triangles or lines"},
        {folder.write("deep.gltf", deepScene), "not a readable mesh: node tree of more than 1000 levels"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.file);
        const ImportResult result = importScene(row.file);
        EXPECT_FALSE(result.root);
        const std::string start = row.file + ": " + row.cause;
        EXPECT_EQ(result.error.substr(0, start.size()), start);
        EXPECT_EQ(std::count(result.error.begin(), result.error.end(), '\n'), 0);
    }
}

TEST_F(SceneImporter, SaysWhatIsDroppedAndRepaired) {
    const std::string file = folder.write("part.off", "OFF\n5 4 0\n0 0 0\n1 0 0\n0 1 0\nnan 0 0\n1 1 0\n"
                                                      "3 0 1 3\n4 0 1 4 3\n4 0 1 4 2\n3 0 1 9\n");
    const ImportResult result = importScene(file);
    EXPECT_EQ(test::dump(result.root), "part triangles 0 1 2 0 2 3 0 1 2");
    const std::vector<std::string> notes{file + ": importer says OFF: Vertex index is out of range",
                                         file + ": 2 primitives with coordinates that are not finite numbers dropped"};
    EXPECT_EQ(result.notes, notes);
}

TEST_F(SceneImporter, EndsImportersThatExceedALimit) {
    ImportLimits limits;
    limits.cpuSeconds = 1;
    limits.memoryBytes = 256 << 20;
    // Combs: half of the corners are reflex, and few corners are ears.
    const int cornerCount = 32000;
    std::string corners, comb = "f";
    for (int corner = 0; corner < cornerCount; ++corner) {
        corners += "v " + std::to_string(corner) + " " + std::to_string(corner % 2 * (corner - cornerCount)) + " 0\n";
        comb += " " + std::to_string(corner + 1);
    }
    for (int doubling = 0; doubling < 5; ++doubling) comb += "\n" + comb;
    const std::string slow = folder.write("slow.obj", corners + comb + "\n");
    EXPECT_EQ(importScene(slow, limits).error, slow + ": importer exceeded 1 s of computing time");
#if !defined(__SANITIZE_ADDRESS__)
    const std::string large = folder.write("large.off", "OFF\n90000000 1 0\n0 0 0\n");
    EXPECT_EQ(importScene(large, limits).error, large + ": importer exceeded 256 MiB of memory");
#endif
}

TEST_F(SceneImporter, BearsDamagedFiles) {
    test::Random random(5);
    int failures = 0, scenes = 0;
    for (const char* format : formats) {
        const std::string bytes = test::readBytes(writeAssembly(folder, format));
        const auto size = static_cast<std::uint32_t>(bytes.size());
        for (int run = 0; run < 60; ++run) {
            std::string damaged = bytes;
            for (std::uint32_t changes = 1 + random.below(4); changes > 0; --changes)
                damaged[random.below(size)] = static_cast<char>(random.below(256));
            if (random.chance(0.2f)) damaged.resize(random.below(size) + 1);
            if (random.chance(0.2f)) damaged.insert(damaged.size() / 2, bytes, random.below(size), random.below(size));
            ImportLimits limits;
            limits.memoryBytes = 256 << 20;
            limits.cpuSeconds = 1;
            const std::string file = folder.write(std::string("damaged.") + format, damaged);
            const ImportResult result = importScene(file, limits);
            ASSERT_EQ(!result.root, result.error.substr(0, file.size() + 2) == file + ": ")
                << format << ", run " << run;
            ASSERT_EQ(std::count(result.error.begin(), result.error.end(), '\n'), 0) << format << ", run " << run;
            ++(result.root ? scenes : failures);
        }
    }
    EXPECT_GT(std::min(scenes, failures), 40);
}

} // namespace tesk::rendering
