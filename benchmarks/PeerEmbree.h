#pragma once

#include <benchmarks/Peers.h>

namespace tesk::benchmarks {

/// Embree's hierarchy of boxes, in single precision, built by one thread.
std::unique_ptr<PointDistancePeer> createEmbreePeer(const test::Mesh& mesh);
/// The same, built by two threads.
std::unique_ptr<PointDistancePeer> createEmbreePeerOfTwoThreads(const test::Mesh& mesh);

} // namespace tesk::benchmarks
