#include <benchmarks/Comparison.h>
#include <benchmarks/Pairs.h>
#include <benchmarks/Peers.h>
#include <benchmarks/Ways.h>
#include <benchmarks/Works.h>

#include <measurement/section/GapMeasurement.h>
#include <measurement/section/GeometrySliceFactory.h>

namespace tesk::benchmarks {

namespace {

constexpr std::size_t sampleCount = 100;
constexpr float halfLength = 0.9f;
// The last sample is half a step in front of the track's end, so that rounding decides about none.
constexpr float sampleDistance = 2.0f * halfLength / (static_cast<float>(sampleCount) - 0.5f);

/// Those of the first object that the samples are taken from.
std::vector<Outline> createOutlines(const osg::NodePtr& object) {
    std::vector<float> offsets;
    for (float t = 0.0f; t <= 2.0f * halfLength; t += sampleDistance) offsets.push_back(halfLength - t);
    std::vector<Outline> outlines;
    const auto keep = [&](const Outline& outline) { outlines.push_back(outline); };
    measurement::GeometrySliceFactory().createSlices(object, osg::Vec3f(0, 1, 0), offsets, keep);
    return outlines;
}

/// The track runs along y through the first object: one after the other, the planes of all samples cut it. The peers
/// get the outlines for nothing.
void measureGap(benchmark::State& state, const Pair& pair, std::size_t triangleCount) {
    const PlacedPair placed(pair, triangleCount);
    measurement::GapMeasurement gap(nullptr);
    gap.setNode1(placed.first.object, osg::Pnt3f(0, -halfLength, 0));
    gap.setNode2(placed.second.object, osg::Pnt3f(0, halfLength, 0));
    gap.setSampleDistance(sampleDistance);
    const auto& samples = gap.getPointPairs();
    const std::vector<Outline> outlines = createOutlines(placed.first.object);
    const OutlineDistancePeers peers = createOutlineDistancePeers(placed.second.world, outlines);
    std::vector<std::vector<double>> peerDistances(peers.size(), std::vector<double>(outlines.size()));
    std::vector<Contestant> contestants{{"ours", [&] { gap.update(); }}};
    for (std::size_t i = 0; i < peers.size(); ++i) {
        const auto work = [&, i] {
            peers[i]->build();
            for (std::size_t outline = 0; outline < outlines.size(); ++outline)
                peerDistances[i][outline] = peers[i]->findDistance(outline);
        };
        contestants.push_back({peers[i]->getName(), work, [&, i] { peers[i]->clear(); }});
    }

    compare(state, contestants);
    showOutlineWays(state, placed.second, outlines);
    expectCount(state, samples.size(), sampleCount);
    for (std::size_t i = 0; i < peers.size(); ++i) {
        auto distance = peerDistances[i].begin();
        for (const auto& [onOutline, onObject] : samples)
            expectAgreement(state, static_cast<double>(onOutline.dist(onObject)), peers[i]->getName(), *distance++,
                            static_cast<double>(placed.longestEdge));
    }
}

} // namespace

void addGap() {
    for (const std::size_t count : triangleCounts) {
        for (const char* pairName : {"near", "nested", "parallel"}) {
            const Pair& pair = getPair(pairName);
            const std::string name = std::string("Gap/") + pair.name + "/" + std::to_string(count) + "/" +
                                     std::to_string(sampleCount) + "_samples";
            addRow(name, count, false, measureGap, pair, count);
        }
    }
}

} // namespace tesk::benchmarks
