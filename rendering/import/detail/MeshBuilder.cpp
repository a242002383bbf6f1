#include <rendering/import/detail/MeshBuilder.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace tesk::rendering::detail {

namespace {

constexpr std::uint32_t unused = 0xffffffff;

std::size_t hash(const Point& point) {
    std::uint32_t bits[3];
    std::memcpy(bits, point.data(), sizeof bits);
    std::uint64_t mixed = bits[0] * 0x9e3779b97f4a7c15u;
    mixed = (mixed ^ (mixed >> 32) ^ bits[1]) * 0xbf58476d1ce4e5b9u;
    mixed = (mixed ^ (mixed >> 32) ^ bits[2]) * 0x94d049bb133111ebu;
    return mixed ^ (mixed >> 32);
}

/// To the bit: 0 and -0 differ.
bool isIdentical(const Point& a, const Point& b) { return std::memcmp(a.data(), b.data(), sizeof(Point)) == 0; }

} // namespace

bool isFinite(const Point& point) {
    return std::isfinite(point[0]) && std::isfinite(point[1]) && std::isfinite(point[2]);
}

bool MeshBuilder::add(const Point* corners) {
    const auto cornerCount = static_cast<std::uint32_t>(mesh.primitive);
    if (!std::all_of(corners, corners + cornerCount, isFinite)) return false;
    // Lengths and indices of a geometry have 32 bits.
    if (mesh.indices.size() > unused - cornerCount) throw UnreadableFile("too many triangles or lines in one mesh");
    for (std::uint32_t corner = 0; corner < cornerCount; ++corner)
        mesh.indices.push_back(findOrAddVertex(corners[corner]));
    return true;
}

std::uint32_t MeshBuilder::findOrAddVertex(const Point& point) {
    if (mesh.positions.size() * 2 >= table.size()) growTable();
    std::size_t slot = hash(point) & (table.size() - 1);
    while (table[slot] != unused && !isIdentical(mesh.positions[table[slot]], point))
        slot = (slot + 1) & (table.size() - 1);
    if (table[slot] == unused) {
        table[slot] = static_cast<std::uint32_t>(mesh.positions.size());
        mesh.positions.push_back(point);
    }
    return table[slot];
}

void MeshBuilder::growTable() {
    table.assign(std::max<std::size_t>(64, table.size() * 2), unused);
    for (std::uint32_t vertex = 0; vertex < mesh.positions.size(); ++vertex) {
        std::size_t slot = hash(mesh.positions[vertex]) & (table.size() - 1);
        while (table[slot] != unused) slot = (slot + 1) & (table.size() - 1);
        table[slot] = vertex;
    }
}

} // namespace tesk::rendering::detail
