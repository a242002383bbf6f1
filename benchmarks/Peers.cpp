#include <benchmarks/Peers.h>

#ifdef TESK_BENCHMARK_CGAL
#include <benchmarks/PeerCgal.h>
#endif
#ifdef TESK_BENCHMARK_FCL
#include <benchmarks/PeerFcl.h>
#endif

namespace tesk::benchmarks {

MeshDistancePeers createMeshDistancePeers([[maybe_unused]] const std::vector<test::Mesh>& meshes) {
    MeshDistancePeers peers;
#ifdef TESK_BENCHMARK_FCL
    peers.push_back(createFclObbRssPeer(meshes));
    peers.push_back(createFclRssPeer(meshes));
#endif
    return peers;
}

PointDistancePeers createPointDistancePeers([[maybe_unused]] const test::Mesh& mesh) {
    PointDistancePeers peers;
#ifdef TESK_BENCHMARK_CGAL
    peers.push_back(createCgalPeer(mesh));
    peers.push_back(createCgalHintedPeer(mesh));
#endif
    return peers;
}

SlicePeers createSlicePeers([[maybe_unused]] const test::Mesh& mesh) {
    SlicePeers peers;
#ifdef TESK_BENCHMARK_CGAL
    peers.push_back(createCgalSlicePeer(mesh));
#endif
    return peers;
}

std::string listPeers() {
    std::string names;
#ifdef TESK_BENCHMARK_FCL
    names += "FCL ";
#endif
#ifdef TESK_BENCHMARK_CGAL
    names += "CGAL ";
#endif
    if (names.empty()) return "none";
    names.pop_back();
    return names;
}

} // namespace tesk::benchmarks
