#include <benchmarks/Peers.h>

#ifdef TESK_BENCHMARK_CGAL
#include <benchmarks/PeerCgal.h>
#endif
#ifdef TESK_BENCHMARK_EMBREE
#include <benchmarks/PeerEmbree.h>
#endif
#ifdef TESK_BENCHMARK_FCL
#include <benchmarks/PeerFcl.h>
#endif
#ifdef TESK_BENCHMARK_VTK
#include <benchmarks/PeerVtk.h>
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
#ifdef TESK_BENCHMARK_EMBREE
    peers.push_back(createEmbreePeer(mesh));
    peers.push_back(createEmbreePeerOfTwoThreads(mesh));
#endif
#ifdef TESK_BENCHMARK_VTK
    peers.push_back(createVtkPeer(mesh));
    peers.push_back(createVtkStaticPeer(mesh));
#endif
    return peers;
}

OutlineDistancePeers createOutlineDistancePeers([[maybe_unused]] const test::Mesh& mesh,
                                                [[maybe_unused]] const std::vector<Outline>& outlines) {
    OutlineDistancePeers peers;
#ifdef TESK_BENCHMARK_FCL
    peers.push_back(createFclOutlinePeer(mesh, outlines));
#endif
    return peers;
}

SlicePeers createSlicePeers([[maybe_unused]] const test::Mesh& mesh) {
    SlicePeers peers;
#ifdef TESK_BENCHMARK_CGAL
    peers.push_back(createCgalSlicePeer(mesh));
#endif
#ifdef TESK_BENCHMARK_VTK
    peers.push_back(createVtkSlicePeer(mesh));
    peers.push_back(createVtkPlaneSlicePeer(mesh));
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
#ifdef TESK_BENCHMARK_EMBREE
    names += "Embree ";
#endif
#ifdef TESK_BENCHMARK_VTK
    names += "VTK ";
#endif
    if (names.empty()) return "none";
    names.pop_back();
    return names;
}

} // namespace tesk::benchmarks
