#pragma once

#include <apps/measure/SceneCatalogue.h>

#include <string>
#include <vector>

namespace tesk::measure {

/// Files in the order of their paths, and what was dropped or changed on the way, one line each.
struct LoadedScenes {
    std::vector<SceneFile> files;
    std::vector<std::string> notes;
};

/// Loads every file, with progress on a terminal. Throws Failure for the first that cannot be read.
LoadedScenes loadScenes(const std::vector<std::string>& paths);

} // namespace tesk::measure
