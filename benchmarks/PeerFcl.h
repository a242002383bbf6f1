#pragma once

#include <benchmarks/Peers.h>

namespace tesk::benchmarks {

/// FCL with trees of oriented boxes and swept rectangles, in double precision.
std::unique_ptr<MeshDistancePeer> createFclObbRssPeer(const std::vector<test::Mesh>& meshes);
/// FCL with trees of swept rectangles, in single precision.
std::unique_ptr<MeshDistancePeer> createFclRssPeer(const std::vector<test::Mesh>& meshes);
/// The same with a tree of the mesh and, in turn, one of each outline.
std::unique_ptr<OutlineDistancePeer> createFclOutlinePeer(const test::Mesh& mesh, const std::vector<Outline>& outlines);

} // namespace tesk::benchmarks
