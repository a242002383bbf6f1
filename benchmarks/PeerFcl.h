#pragma once

#include <benchmarks/Peers.h>

namespace tesk::benchmarks {

/// FCL with trees of oriented boxes and swept rectangles, in double precision.
std::unique_ptr<MeshDistancePeer> createFclObbRssPeer(const std::vector<test::Mesh>& meshes);
/// FCL with trees of swept rectangles, in single precision.
std::unique_ptr<MeshDistancePeer> createFclRssPeer(const std::vector<test::Mesh>& meshes);

} // namespace tesk::benchmarks
