#pragma once

#include <map>
#include <string>

namespace tesk::rendering::detail {

/// The names of the objects in a 3MF file by object id, which assimp leaves out; those in its main model only. Empty
/// when the file cannot be read.
std::map<std::string, std::string> readThreeMfNames(const std::string& file);

} // namespace tesk::rendering::detail
