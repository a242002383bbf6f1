#include <rendering/import/detail/AssimpReader.h>

#include <rendering/import/detail/AssimpFlattener.h>

#include <assimp/DefaultLogger.hpp>
#include <assimp/Importer.hpp>
#include <assimp/LogStream.hpp>
#include <assimp/config.h>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <algorithm>
#include <fstream>

namespace tesk::rendering::detail {

namespace {

/// assimp searches for ever for the end of a PLY header that has none.
void refuseEndlessPlyHeader(const std::string& file) {
    constexpr const char* whitespace = " \t\r";
    std::ifstream stream(file, std::ios::binary);
    for (std::string line; std::getline(stream, line);) {
        const std::size_t start = line.find_first_not_of(whitespace);
        if (start != std::string::npos &&
            line.substr(start, line.find_last_not_of(whitespace) + 1 - start) == "end_header")
            return;
    }
    throw UnreadableFile("PLY header without an end");
}

/// Gathers what assimp reports while it goes on reading, each thing once.
class ErrorLog : public Assimp::LogStream {
public:
    static std::vector<std::string>& attach() {
        auto* const log = new ErrorLog;
        Assimp::DefaultLogger::create("", Assimp::Logger::NORMAL, 0)->attachStream(log, Assimp::Logger::Err);
        return log->errors;
    }

    /// A message is "Error, T0: <text>" with a line break. Materials are not read, so what they lack does not matter.
    void write(const char* message) override {
        const std::string text = message;
        const std::size_t prefixEnd = text.find(": ");
        const bool isOnMaterial = text.find("material") != std::string::npos;
        if (isOnMaterial || prefixEnd == std::string::npos || errors.size() == maximumErrorCount) return;
        const std::string error = "importer says " + text.substr(prefixEnd + 2);
        if (std::find(errors.begin(), errors.end(), error) == errors.end()) errors.push_back(error);
    }

private:
    static constexpr std::size_t maximumErrorCount = 20;

    std::vector<std::string> errors;
};

/// What is never read must not make a file invalid; the arrays stay allocated.
void forgetUnusedContent(aiScene& scene) {
    scene.mNumAnimations = scene.mNumCameras = scene.mNumLights = 0;
    scene.mAnimations = nullptr;
    scene.mCameras = nullptr;
    scene.mLights = nullptr;
}

bool hasFaces(const aiScene& scene) {
    return std::any_of(scene.mMeshes, scene.mMeshes + scene.mNumMeshes,
                       [](const aiMesh* mesh) { return mesh->mNumFaces > 0; });
}

} // namespace

FlatScene readWithAssimp(const std::string& file) {
    const AssimpNames names(file);
    if (names.getFormat() == "ply") refuseEndlessPlyHeader(file);
    std::vector<std::string>& notes = ErrorLog::attach();
    auto& importer = *new Assimp::Importer;
    importer.SetPropertyBool(AI_CONFIG_IMPORT_NO_SKELETON_MESHES, true);
    importer.SetPropertyBool(AI_CONFIG_IMPORT_COLLADA_USE_COLLADA_NAMES, true);
    importer.SetPropertyBool(AI_CONFIG_IMPORT_COLLADA_IGNORE_UP_DIRECTION, true);
    if (!importer.ReadFile(file, 0)) throw UnreadableFile(importer.GetErrorString());

    // The importer offers its scene for reading only, but steps that follow work on it as it is.
    auto& scene = const_cast<aiScene&>(*importer.GetScene());
    if (!scene.mRootNode) throw UnreadableFile("no root node");
    if (!hasFaces(scene)) return {};
    if (scene.mFlags & AI_SCENE_FLAGS_INCOMPLETE) throw UnreadableFile("incomplete scene");
    forgetUnusedContent(scene);
    if (!importer.ApplyPostProcessing(aiProcess_ValidateDataStructure)) throw UnreadableFile(importer.GetErrorString());

    if (names.getFormat() == "dae" && scene.mRootNode->mTransformation != aiMatrix4x4()) {
        scene.mRootNode->mTransformation = aiMatrix4x4();
        notes.push_back("unit not applied: coordinates are the file's own");
    }
    FlatScene flat = flatten(scene, names);
    flat.notes.insert(flat.notes.begin(), notes.begin(), notes.end());
    return flat;
}

} // namespace tesk::rendering::detail
