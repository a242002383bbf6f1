#include <apps/measure/SceneLoading.h>

#include <apps/measure/Failure.h>
#include <apps/measure/Progress.h>

#include <rendering/import/SceneImporter.h>

namespace tesk::measure {

namespace {

rendering::ImportResult importWithProgress(const std::string& path) {
    const Progress progress("loading " + baseName(path));
    return rendering::importScene(path);
}

} // namespace

LoadedScenes loadScenes(const std::vector<std::string>& paths) {
    LoadedScenes loaded;
    for (const std::string& path : paths) {
        rendering::ImportResult result = importWithProgress(path);
        if (result.root == osg::NullFC) throw Failure(result.error);
        SceneFile& file = loaded.files.emplace_back();
        file.path = path;
        file.root = result.root;
        loaded.notes.insert(loaded.notes.end(), result.notes.begin(), result.notes.end());
    }
    return loaded;
}

} // namespace tesk::measure
