#pragma once

#include <map>
#include <string>

struct aiMesh;
struct aiNode;

namespace tesk::rendering::detail {

/// The names that a file gives its nodes and meshes, told from those that assimp makes up.
class AssimpNames {
public:
    explicit AssimpNames(const std::string& file);

    /// Empty when the file gives none.
    std::string of(const aiNode& node) const;
    std::string of(const aiMesh& mesh) const;

    /// The extension in lower case.
    const std::string& getFormat() const { return format; }

private:
    std::string format;
    /// Of a 3MF file, by id.
    std::map<std::string, std::string> objectNames;
};

} // namespace tesk::rendering::detail
