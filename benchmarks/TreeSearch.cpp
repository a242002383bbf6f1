#include <benchmarks/Comparison.h>
#include <benchmarks/Pairs.h>
#include <benchmarks/Peers.h>
#include <benchmarks/Works.h>

#include <measurement/scene/DistanceBoundingVolumeTree.h>

#include <cmath>
#include <limits>
#include <optional>

namespace tesk::benchmarks {

namespace {

using measurement::BoundingVolumeTree;
using measurement::DistanceBoundingVolumeTree;

/// Above it the plain search takes minutes.
constexpr std::size_t closePairLimit = 100'000;

/// The search alone, on trees that stand.
void measureSearch(benchmark::State& state, const Pair& pair, std::size_t triangleCount) {
    const PlacedPair placed(pair, triangleCount);
    const MeshDistancePeers peers = createMeshDistancePeers({placed.first.world, placed.second.world});
    std::vector<double> peerDistances(peers.size());
    const BoundingVolumeTree tree1(placed.first.geometry), tree2(placed.second.geometry);
    std::optional<DistanceBoundingVolumeTree> search;
    std::vector<Contestant> contestants{
        {"ours", [&] { search.emplace(tree1, tree2, std::numeric_limits<float>::max()); }}};
    for (std::size_t i = 0; i < peers.size(); ++i) {
        peers[i]->build();
        contestants.push_back({peers[i]->getName(), [&, i] { peerDistances[i] = peers[i]->findDistance(); }});
    }

    compare(state, contestants);
    state.counters["node_pairs"] = static_cast<double>(search->getNodePairCount());
    state.counters["triangle_pairs"] = static_cast<double>(search->getTrianglePairCount());
    const double distance = std::sqrt(static_cast<double>(search->getSquaredDistance()));
    for (std::size_t i = 0; i < peers.size(); ++i)
        expectAgreement(state, distance, peers[i]->getName(), peerDistances[i],
                        static_cast<double>(placed.longestEdge));
}

} // namespace

void addTreeSearch() { addPairRows("TreeSearch", measureSearch, closePairLimit); }

} // namespace tesk::benchmarks
