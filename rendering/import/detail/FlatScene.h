#pragma once

#include <array>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

/// A scene as plain arrays: how a reader describes a file before there are scene nodes.
namespace tesk::rendering::detail {

typedef std::array<float, 3> Point;

/// The value is the number of corners.
enum class Primitive : std::uint32_t { line = 2, triangle = 3 };

struct FlatMesh {
    Primitive primitive = Primitive::triangle;
    std::vector<Point> positions;
    std::vector<std::uint32_t> indices;
};

enum class NodeKind : std::uint32_t { group, transform, geometry };

constexpr std::uint32_t noParent = 0xffffffff;

struct FlatNode {
    NodeKind kind = NodeKind::group;
    /// An earlier node that is no geometry, or noParent.
    std::uint32_t parent = noParent;
    /// Empty: to be called after the file.
    std::string name;
    /// Of a transform, by rows.
    std::array<float, 16> matrix{};
    /// Of a geometry.
    std::uint32_t mesh = 0;
};

struct FlatScene {
    std::vector<FlatMesh> meshes;
    /// Each before its children.
    std::vector<FlatNode> nodes;
    std::vector<std::string> notes;
};

constexpr std::uint32_t maximumDepth = 1000;
constexpr std::uint32_t maximumNodeCount = 1000000;

/// The file cannot be read; the text says why.
class UnreadableFile : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// "1 facet", "2 facets".
inline std::string counted(std::uint64_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

} // namespace tesk::rendering::detail
