#include <benchmarks/Comparison.h>
#include <benchmarks/Pairs.h>
#include <benchmarks/Peers.h>
#include <benchmarks/Ways.h>
#include <benchmarks/Works.h>

#include <measurement/section/LineObjectMeasurement.h>

#include <cmath>

namespace tesk::benchmarks {

namespace {

const Shape sphere{"sphere", test::sphere};
const osg::Pnt3f centre(1, 2, 3);

/// A tenth above the sphere, most of the way around it. The ends of an edge are too far apart to be joined.
std::vector<measurement::Segment> createArc() {
    const float radius = 1.1f, angle = 5.6f;
    const int edgeCount = 1000;
    std::vector<measurement::Segment> arc;
    const auto place = [&](int i) {
        const float turn = angle * static_cast<float>(i) / static_cast<float>(edgeCount);
        return centre + osg::Vec3f(std::cos(turn), 0.8f * std::sin(turn), 0.6f * std::sin(turn)) * radius;
    };
    for (int i = 0; i < edgeCount; ++i) arc.push_back({place(i), place(i + 1)});
    return arc;
}

float lengthOf(const std::vector<measurement::Segment>& line) {
    double length = 0.0;
    for (const measurement::Segment& segment : line) length += static_cast<double>(segment.start.dist(segment.end));
    return static_cast<float>(length);
}

/// Ours walks along the line as well; the peers get its places for nothing.
void measureLine(benchmark::State& state, const Shape& shape, std::size_t triangleCount, std::size_t sampleCount) {
    const PlacedMesh mesh(shape, triangleCount, test::translated(centre[0], centre[1], centre[2]));
    const std::vector<measurement::Segment> arc = createArc();
    const test::SceneNode line = test::lines(arc);
    measurement::LineObjectMeasurement measurement(nullptr);
    measurement.setLine(line, arc.front().start);
    measurement.setNode(mesh.object);
    // The start counts twice. The last sample is at the end, 0.8 steps after the one before: rounding decides about
    // none, and that one is too far from the end to be taken for it.
    measurement.setSampleDistance(lengthOf(arc) / (static_cast<float>(sampleCount) - 2.2f));
    const auto& samples = measurement.getPointPairs();
    const PointDistancePeers peers = createPointDistancePeers(mesh.world);
    std::vector<std::vector<double>> peerDistances(peers.size());
    std::vector<Contestant> contestants{{"ours", [&] { measurement.update(); }}};
    for (std::size_t i = 0; i < peers.size(); ++i) {
        const auto work = [&, i] {
            peers[i]->build();
            peerDistances[i].clear();
            for (const auto& sample : samples) peerDistances[i].push_back(peers[i]->findDistance(sample.first));
        };
        contestants.push_back(
            {peers[i]->getName(), work, [&, i] { peers[i]->clear(); }, [&, i] { peers[i]->prepare(); }});
    }

    compare(state, contestants);
    std::vector<osg::Pnt3f> places;
    for (const auto& sample : samples) places.push_back(sample.first);
    showSampleWays(state, mesh, places);
    expectCount(state, samples.size(), sampleCount);
    for (std::size_t i = 0; i < peers.size(); ++i) {
        auto distance = peerDistances[i].begin();
        for (const auto& [onLine, onObject] : samples)
            expectAgreement(state, static_cast<double>(onLine.dist(onObject)), peers[i]->getName(), *distance++, 0.0);
    }
}

} // namespace

void addLineObject() {
    const auto addLineRow = [](const Shape& shape, std::size_t count, std::size_t samples) {
        const std::string name = std::string("LineObject/") + shape.name + "/" + std::to_string(count) + "/" +
                                 std::to_string(samples) + "_samples";
        addRow(name, count, false, measureLine, shape, count, samples);
    };
    for (const std::size_t count : triangleCounts) {
        for (const std::size_t samples : {100, 1000, 10'000}) addLineRow(sphere, count, samples);
        addLineRow(shuffledSphere, count, 1000);
    }
}

} // namespace tesk::benchmarks
