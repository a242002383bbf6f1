#pragma once

#include <benchmarks/Pairs.h>
#include <benchmarks/Peers.h>

#include <benchmark/benchmark.h>

/// How often the library took which way to a result: seen by doing its searches once more, on its private classes.
///
/// All add to the row's counters.
namespace tesk::benchmarks {

/// `near_pairs` where the ordered search ran long and was restricted to near pairs of triangles, `ordered` where it
/// came to its end before, `given_up` where it ran long and the near pairs were of no use.
void showSearchWay(benchmark::State& state, const PlacedPair& placed);
/// The samples of which the search was restricted to near pairs, `near_pairs`, and the others, `given_up`.
void showOutlineWays(benchmark::State& state, const PlacedMesh& mesh, const std::vector<Outline>& outlines);
/// The trees of triangles or lines that samples at these places found useful as they are indexed, `index_tree`, and
/// those that had to be sorted, `sorted_tree`.
void showSampleWays(benchmark::State& state, const PlacedMesh& mesh, const std::vector<osg::Pnt3f>& places);

} // namespace tesk::benchmarks
