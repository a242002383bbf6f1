#include <benchmarks/Comparison.h>
#include <benchmarks/Pairs.h>
#include <benchmarks/Peers.h>
#include <benchmarks/Works.h>

#include <measurement/scene/PointObjectDistanceCalculator.h>

#include <algorithm>

namespace tesk::benchmarks {

namespace {

/// Points a little off the surface, along one way over it.
std::vector<osg::Pnt3f> createPath(const test::Mesh& mesh, std::size_t pointCount) {
    std::vector<osg::Pnt3f> path;
    const std::size_t start = mesh.positions.size() / 3;
    for (std::size_t i = 0; i < pointCount; ++i)
        path.push_back(mesh.positions[start + i] + osg::Vec3f(0.03f, 0.02f, 0.01f));
    return path;
}

/// From the scene node to the last point's result. Ours begins anew with every point, the peers build once.
void measurePoints(benchmark::State& state, const Shape& shape, std::size_t triangleCount, std::size_t pointCount) {
    const PlacedMesh mesh(shape, triangleCount, test::translated(1, 2, 3));
    const std::vector<osg::Pnt3f> path = createPath(mesh.world, pointCount);
    const PointDistancePeers peers = createPointDistancePeers(mesh.world);
    std::vector<std::vector<double>> peerDistances(peers.size(), std::vector<double>(pointCount));
    std::vector<double> distances(pointCount);
    measurement::PointObjectDistanceCalculator calculator;
    const auto measureOurs = [&] {
        for (std::size_t p = 0; p < pointCount; ++p) {
            calculator.calc(path[p], mesh.object);
            distances[p] = static_cast<double>(path[p].dist(calculator.getPoint()));
        }
    };
    std::vector<Contestant> contestants{{"ours", measureOurs}};
    for (std::size_t i = 0; i < peers.size(); ++i) {
        const auto work = [&, i] {
            peers[i]->build();
            for (std::size_t p = 0; p < pointCount; ++p) peerDistances[i][p] = peers[i]->findDistance(path[p]);
        };
        contestants.push_back(
            {peers[i]->getName(), work, [&, i] { peers[i]->clear(); }, [&, i] { peers[i]->prepare(); }});
    }

    compare(state, contestants);
    for (std::size_t i = 0; i < peers.size(); ++i)
        for (std::size_t p = 0; p < pointCount; ++p)
            expectAgreement(state, distances[p], peers[i]->getName(), peerDistances[i][p], 0.0);
}

} // namespace

void addPointObject() {
    std::vector<Shape> allShapes = shapes;
    allShapes.push_back(shuffledBumpySphere);
    for (const std::size_t count : triangleCounts) {
        for (const Shape& shape : allShapes) {
            for (const std::size_t points : {1, 100}) {
                const std::string name = std::string("PointObject/") + shape.name + "/" + std::to_string(count) +
                                         (points == 1 ? "/1_point" : "/" + std::to_string(points) + "_points");
                addRow(name, count, false, measurePoints, shape, count, points);
            }
        }
    }
}

} // namespace tesk::benchmarks
