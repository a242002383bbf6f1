#pragma once

#include <rendering/import/detail/FlatScene.h>

namespace tesk::rendering::detail {

/// Reads a mesh file through assimp, which tells the format by the file name's extension.
///
/// Notes say what was dropped, repaired or complained of. Throws UnreadableFile.
///
/// Only for a process that ends soon: what assimp has loaded is never freed.
FlatScene readWithAssimp(const std::string& file);

} // namespace tesk::rendering::detail
