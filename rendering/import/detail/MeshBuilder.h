#pragma once

#include <rendering/import/detail/FlatScene.h>

namespace tesk::rendering::detail {

/// Gathers triangles or lines by their corners into a mesh in which corners that agree to the bit are one vertex.
///
/// Vertices and primitives keep the order in which they came. Linear, by hashing.
class MeshBuilder {
public:
    explicit MeshBuilder(Primitive primitive) { mesh.primitive = primitive; }

    /// Appends the primitive, unless a coordinate is not finite: then false. Throws UnreadableFile when full.
    bool add(const Point* corners);

    bool isEmpty() const { return mesh.indices.empty(); }
    /// Hands over the mesh; the builder must not be used afterwards.
    FlatMesh take() { return std::move(mesh); }

private:
    std::uint32_t findOrAddVertex(const Point& point);
    void growTable();

    FlatMesh mesh;
    /// Open addressing: vertex index or unused; a power of two.
    std::vector<std::uint32_t> table;
};

bool isFinite(const Point& point);

} // namespace tesk::rendering::detail
