#include <benchmarks/Ways.h>

#include <benchmarks/SilentOutput.h>

#include <measurement/acceleration/outlines/OutlineDistance.h>
#include <measurement/acceleration/pairs/TreeDistance.h>
#include <measurement/scene/detail/PointIndex.h>
#include <measurement/scene/detail/SubtreeSnapshot.h>

#include <limits>

namespace tesk::benchmarks {

using measurement::detail::SubtreeSnapshot;

void showSearchWay(benchmark::State& state, const PlacedPair& placed) {
    const SilentOutput silence;
    const SubtreeSnapshot first(placed.first.object), second(placed.second.object);
    measurement::acceleration::LazyTree tree1(first.getMesh()), tree2(second.getMesh());
    const measurement::acceleration::TreeDistance search(tree1, tree2, std::numeric_limits<float>::max());
    state.counters["near_pairs"] = search.isFromNearPairs() ? 1 : 0;
    state.counters["given_up"] = search.isNearPairsGivenUp() ? 1 : 0;
    state.counters["ordered"] = search.isFromNearPairs() || search.isNearPairsGivenUp() ? 0 : 1;
}

void showOutlineWays(benchmark::State& state, const PlacedMesh& mesh, const std::vector<Outline>& outlines) {
    const SilentOutput silence;
    const SubtreeSnapshot object(mesh.object);
    measurement::acceleration::OutlineDistance search(object.getMesh());
    double searches = 0.0;
    for (const Outline& outline : outlines) {
        if (outline.empty()) continue;
        search.calcDistance(outline);
        ++searches;
    }
    const auto near = static_cast<double>(search.getNearSearchCount());
    state.counters["near_pairs"] = near;
    state.counters["given_up"] = searches - near;
}

void showSampleWays(benchmark::State& state, const PlacedMesh& mesh, const std::vector<osg::Pnt3f>& places) {
    measurement::detail::PointIndex index(mesh.object);
    for (const osg::Pnt3f& place : places) index.calc(place);
    const auto trees = index.countTrees();
    state.counters["index_tree"] = static_cast<double>(trees.inIndexOrder);
    state.counters["sorted_tree"] = static_cast<double>(trees.sorted);
}

} // namespace tesk::benchmarks
