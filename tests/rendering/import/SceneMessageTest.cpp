#include <rendering/import/detail/SceneMessage.h>

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>

namespace tesk::rendering::detail {

namespace {

typedef std::unique_ptr<std::FILE, int (*)(std::FILE*)> Stream;

Stream streamOf(const std::string& bytes) {
    Stream stream(std::tmpfile(), std::fclose);
    std::fwrite(bytes.data(), 1, bytes.size(), stream.get());
    std::rewind(stream.get());
    return stream;
}

std::string bytesOf(const FlatScene& scene) {
    const Stream stream(std::tmpfile(), std::fclose);
    writeScene(stream.get(), scene);
    std::string bytes(static_cast<std::size_t>(std::ftell(stream.get())), '\0');
    std::rewind(stream.get());
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), stream.get()));
    return bytes;
}

FlatScene sceneOf(const std::string& bytes) { return readScene(streamOf(bytes).get(), 1 << 20); }

/// A placed triangle beside a group with the same triangle.
FlatScene createScene() {
    FlatScene scene;
    scene.meshes = {{Primitive::triangle, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {0, 1, 2}}};
    scene.nodes = {{NodeKind::transform, noParent, "placed", {1, 0, 0, 7}, 0},
                   {NodeKind::geometry, 0, "nut", {}, 0},
                   {NodeKind::group, noParent, "group", {}, 0},
                   {NodeKind::geometry, 2, "", {}, 0}};
    scene.notes = {"a note"};
    return scene;
}

} // namespace

TEST(SceneMessage, BringsTheWholeScene) {
    const std::string bytes = bytesOf(createScene());
    EXPECT_EQ(bytesOf(readScene(streamOf(bytes).get(), bytes.size())), bytes);
    EXPECT_THROW(readScene(streamOf(bytes).get(), bytes.size() - 1), MessageDamaged);
    for (std::size_t size = 0; size < bytes.size(); ++size)
        ASSERT_THROW(sceneOf(bytes.substr(0, size)), MessageCutShort) << size << " bytes";
}

TEST(SceneMessage, RefusesWhatCannotBeBuilt) {
    const float infinity = std::numeric_limits<float>::infinity();
    const struct {
        const char* fault;
        std::function<void(FlatScene&)> damage;
    } rows[] = {
        {"index out of range", [](FlatScene& scene) { scene.meshes[0].indices[1] = 3; }},
        {"half a triangle", [](FlatScene& scene) { scene.meshes[0].indices.pop_back(); }},
        {"no triangle", [](FlatScene& scene) { scene.meshes[0].indices.clear(); }},
        {"unknown primitive", [](FlatScene& scene) { scene.meshes[0].primitive = Primitive(1); }},
        {"coordinate not finite", [&](FlatScene& scene) { scene.meshes[0].positions[2][1] = infinity; }},
        {"unknown kind", [](FlatScene& scene) { scene.nodes[2].kind = NodeKind(3); }},
        {"missing mesh", [](FlatScene& scene) { scene.nodes[1].mesh = 1; }},
        {"its own parent", [](FlatScene& scene) { scene.nodes[2].parent = 2; }},
        {"below a geometry", [](FlatScene& scene) { scene.nodes[3].parent = 1; }},
        {"transform not finite", [&](FlatScene& scene) { scene.nodes[0].matrix[3] = infinity; }},
        {"too deep",
         [](FlatScene& scene) {
             for (std::uint32_t parent = 2; parent < 1100; ++parent)
                 scene.nodes.push_back({NodeKind::group, parent == 2 ? 2 : parent + 1, "", {}, 0});
         }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fault);
        FlatScene scene = createScene();
        row.damage(scene);
        EXPECT_THROW(sceneOf(bytesOf(scene)), MessageDamaged);
    }
}

} // namespace tesk::rendering::detail
