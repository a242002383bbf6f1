#include <benchmarks/Comparison.h>
#include <benchmarks/Pairs.h>
#include <benchmarks/Peers.h>
#include <benchmarks/Ways.h>
#include <benchmarks/Works.h>

#include <measurement/scene/ObjectObjectDistanceCalculator.h>

namespace tesk::benchmarks {

namespace {

/// From scene nodes to the result; the peers build from their own arrays.
void measureObjects(benchmark::State& state, const Pair& pair, std::size_t triangleCount) {
    const PlacedPair placed(pair, triangleCount);
    const MeshDistancePeers peers = createMeshDistancePeers({placed.first.world, placed.second.world});
    std::vector<double> peerDistances(peers.size());
    measurement::ObjectObjectDistanceCalculator calculator;
    std::vector<Contestant> contestants{{"ours", [&] { calculator.calc(placed.first.object, placed.second.object); }}};
    for (std::size_t i = 0; i < peers.size(); ++i) {
        const auto work = [&, i] {
            peers[i]->build();
            peerDistances[i] = peers[i]->findDistance();
        };
        contestants.push_back({peers[i]->getName(), work, [&, i] { peers[i]->clear(); }});
    }

    compare(state, contestants);
    showHeap(state, contestants, placed.countTriangles(), HeapUse::peak);
    state.counters["node_pairs"] = static_cast<double>(calculator.getNodePairCount());
    state.counters["triangle_pairs"] = static_cast<double>(calculator.getTrianglePairCount());
    showSearchWay(state, placed);
    const auto distance = static_cast<double>(calculator.getPoint1().dist(calculator.getPoint2()));
    for (std::size_t i = 0; i < peers.size(); ++i)
        expectAgreement(state, distance, peers[i]->getName(), peerDistances[i],
                        static_cast<double>(placed.longestEdge));
}

} // namespace

void addObjectObject() { addPairRows("ObjectObject", measureObjects); }

} // namespace tesk::benchmarks
