#include <benchmarks/Comparison.h>
#include <benchmarks/Pairs.h>
#include <benchmarks/Peers.h>
#include <benchmarks/Works.h>

#include <measurement/scene/BoundingVolumeTree.h>

#include <optional>

namespace tesk::benchmarks {

namespace {

/// One tree of one object: ours from the scene, the peers' from their own arrays.
void measureBuilding(benchmark::State& state, const Shape& shape, std::size_t triangleCount) {
    const PlacedMesh mesh(shape, triangleCount, test::translated(1, 2, 3));
    const MeshDistancePeers peers = createMeshDistancePeers({mesh.world});
    std::optional<measurement::BoundingVolumeTree> tree;
    std::vector<Contestant> contestants{
        {"ours", [&] { tree.emplace().build(mesh.object, true); }, [&] { tree.reset(); }}};
    for (const auto& peer : peers)
        contestants.push_back({peer->getName(), [&peer] { peer->build(); }, [&peer] { peer->clear(); }});

    compare(state, contestants);
    showHeap(state, contestants, mesh.countTriangles(), HeapUse::afterwards);
}

} // namespace

void addTreeBuilding() {
    for (const std::size_t count : triangleCounts) {
        for (const Shape& shape : shapes) {
            const std::string name = std::string("TreeBuilding/") + shape.name + "/" + std::to_string(count);
            addRow(name, count, false, measureBuilding, shape, count);
        }
    }
}

} // namespace tesk::benchmarks
