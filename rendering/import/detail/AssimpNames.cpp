#include <rendering/import/detail/AssimpNames.h>

#include <rendering/import/detail/ThreeMfNames.h>

#include <assimp/scene.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <string_view>

namespace tesk::rendering::detail {

namespace {

constexpr std::string_view threeMfPrefix = "Object_";

bool startsWith(const std::string& text, std::string_view start) { return text.compare(0, start.size(), start) == 0; }

/// Such as nodes[3], or meshes[3]-0 for the first of several parts.
bool isNumbered(const std::string& name, std::string_view start) {
    return startsWith(name, start) && name.find_first_not_of("0123456789]-", start.size()) == std::string::npos;
}

bool isMadeUp(const std::string& name) {
    return (startsWith(name, "<") && name.back() == '>') || name == "defaultobject" ||
           startsWith(name, "$ColladaAutoName$_") || isNumbered(name, "nodes[") || isNumbered(name, "meshes[");
}

} // namespace

AssimpNames::AssimpNames(const std::string& file) : format(std::filesystem::path(file).extension().string().substr(1)) {
    for (char& letter : format) letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    if (format == "3mf") objectNames = readThreeMfNames(file);
}

std::string AssimpNames::of(const aiNode& node) const {
    // Only glTF has a root of its own; elsewhere it stands for the file.
    const bool isGltf = format == "gltf" || format == "glb";
    const std::string name = node.mName.C_Str();
    if (!node.mParent && (!isGltf || name == "ROOT")) return {};
    if (format != "3mf") return isMadeUp(name) ? std::string() : name;
    const auto found = objectNames.find(name.substr(std::min(name.size(), threeMfPrefix.size())));
    return found == objectNames.end() ? std::string() : found->second;
}

std::string AssimpNames::of(const aiMesh& mesh) const {
    // Those of OBJ meshes may be names of materials, those of 3MF meshes are ids.
    const std::string name = mesh.mName.C_Str();
    return format == "obj" || format == "3mf" || isMadeUp(name) ? std::string() : name;
}

} // namespace tesk::rendering::detail
