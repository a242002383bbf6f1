#include <benchmarks/Comparison.h>
#include <benchmarks/Pairs.h>
#include <benchmarks/Works.h>

#include <measurement/section/GapMeasurement.h>

namespace tesk::benchmarks {

namespace {

constexpr std::size_t sampleCount = 1000;

/// The track runs along y through the first object: one after the other, the planes of all samples cut it.
void measureGap(benchmark::State& state, const Pair& pair, std::size_t triangleCount) {
    const PlacedPair placed(pair, triangleCount);
    const float halfLength = 0.9f;
    measurement::GapMeasurement gap(nullptr);
    gap.setNode1(placed.first.object, osg::Pnt3f(0, -halfLength, 0));
    gap.setNode2(placed.second.object, osg::Pnt3f(0, halfLength, 0));
    // The last sample is half a step in front of the track's end, so that rounding decides about none.
    gap.setSampleDistance(2.0f * halfLength / (static_cast<float>(sampleCount) - 0.5f));

    compare(state, {{"ours", [&] { gap.update(); }}});
    expectCount(state, gap.getPointPairs().size(), sampleCount);
}

} // namespace

void addGap(std::size_t closePairLimit) {
    for (const std::size_t count : triangleCounts) {
        for (const char* pairName : {"near", "nested"}) {
            const Pair& pair = getPair(pairName);
            const std::string name = std::string("Gap/") + pair.name + "/" + std::to_string(count) + "/" +
                                     std::to_string(sampleCount) + "_samples";
            addRow(name, count * sampleCount, pair.fitsClosely && count > closePairLimit, measureGap, pair, count);
        }
    }
}

} // namespace tesk::benchmarks
