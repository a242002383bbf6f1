#pragma once

#include <benchmarks/Peers.h>

namespace tesk::benchmarks {

/// CGAL's tree of boxes, in double precision.
std::unique_ptr<PointDistancePeer> createCgalPeer(const test::Mesh& mesh);
/// The same with its second tree, which finds a first bound for each query: slower to build, faster to ask.
std::unique_ptr<PointDistancePeer> createCgalHintedPeer(const test::Mesh& mesh);
/// CGAL's slicer, which has a tree of the mesh's edges.
std::unique_ptr<SlicePeer> createCgalSlicePeer(const test::Mesh& mesh);

} // namespace tesk::benchmarks
