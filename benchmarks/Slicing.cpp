#include <benchmarks/Comparison.h>
#include <benchmarks/Pairs.h>
#include <benchmarks/Peers.h>
#include <benchmarks/Works.h>

#include <measurement/section/GeometrySliceFactory.h>

#include <cmath>
#include <list>

namespace tesk::benchmarks {

namespace {

const Shape shape{"bumpySphere", test::bumpySphere};
const osg::Pnt3f centre(1, 2, 3);

/// Parallel planes, along no axis, evenly through the shape but for its ends.
struct Planes {
    osg::Vec3f normal{0.36f, 0.48f, 0.8f};
    std::vector<float> offsets;

    explicit Planes(std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            const float height = 1.8f * (static_cast<float>(i) + 0.5f) / static_cast<float>(count) - 0.9f;
            offsets.push_back(-height - normal.dot(osg::Vec3f(centre)));
        }
    }
    osg::Vec4f get(std::size_t i) const { return {normal[0], normal[1], normal[2], offsets[i]}; }
};

bool areClose(const osg::Pnt3f& a, const osg::Pnt3f& b) {
    const float rounding = 1e-5f;
    return std::fabs(a[0] - b[0]) < rounding && std::fabs(a[1] - b[1]) < rounding && std::fabs(a[2] - b[2]) < rounding;
}

/// Where a plane meets a vertex, the slice may have a segment once in each direction.
bool leadsBack(const measurement::Segment& segment, const measurement::Segment& previous) {
    return areClose(segment.start, previous.end) && areClose(segment.end, previous.start);
}

template <class Outline> double lengthOf(const Outline& outline) {
    double length = 0.0;
    const measurement::Segment* previous = nullptr;
    for (const measurement::Segment& segment : outline) {
        if (!previous || !leadsBack(segment, *previous)) length += static_cast<double>(segment.start.dist(segment.end));
        previous = &segment;
    }
    return length;
}

/// From the scene node to the lengths of all outlines.
void measureSlices(benchmark::State& state, std::size_t triangleCount, std::size_t planeCount) {
    const PlacedMesh mesh(shape, triangleCount, test::translated(centre[0], centre[1], centre[2]));
    const Planes planes(planeCount);
    const SlicePeers peers = createSlicePeers(mesh.world);
    std::vector<std::vector<double>> peerLengths(peers.size());
    std::vector<double> lengths(planeCount);
    const auto measureOurs = [&] {
        if (planeCount == 1) {
            std::list<measurement::Segment> outline;
            measurement::GeometrySliceFactory().createSlice(mesh.object, planes.get(0), outline);
            lengths[0] = lengthOf(outline);
        } else {
            auto length = lengths.begin();
            const auto visit = [&](const std::vector<measurement::Segment>& outline) { *length++ = lengthOf(outline); };
            measurement::GeometrySliceFactory().createSlices(mesh.object, planes.normal, planes.offsets, visit);
        }
    };
    std::vector<Contestant> contestants{{"ours", measureOurs}};
    for (std::size_t i = 0; i < peers.size(); ++i) {
        const auto work = [&, i] {
            peers[i]->build();
            peerLengths[i] = peers[i]->findOutlineLengths(planes.normal, planes.offsets);
        };
        contestants.push_back({peers[i]->getName(), work, [&, i] { peers[i]->clear(); }});
    }

    compare(state, contestants);
    for (std::size_t i = 0; i < peers.size(); ++i)
        for (std::size_t p = 0; p < planeCount; ++p)
            expectSameLength(state, lengths[p], peers[i]->getName(), peerLengths[i][p]);
}

} // namespace

void addSlicing() {
    for (const std::size_t count : triangleCounts) {
        for (const std::size_t planes : {1, 100, 1000}) {
            const std::string name = std::string("Slicing/") + shape.name + "/" + std::to_string(count) +
                                     (planes == 1 ? "/1_plane" : "/" + std::to_string(planes) + "_planes");
            addRow(name, count * planes, false, measureSlices, count, planes);
        }
    }
}

} // namespace tesk::benchmarks
