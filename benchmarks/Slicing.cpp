#include <benchmarks/Comparison.h>
#include <benchmarks/Pairs.h>
#include <benchmarks/Peers.h>
#include <benchmarks/Works.h>

#include <measurement/section/GeometrySliceFactory.h>

#include <list>

namespace tesk::benchmarks {

namespace {

const Shape shape{"bumpySphere", test::bumpySphere};
const osg::Pnt3f centre(1, 2, 3);

/// Parallel planes, along no axis, evenly through the shape but for its ends.
std::vector<osg::Vec4f> createPlanes(std::size_t planeCount) {
    const osg::Vec3f normal(0.36f, 0.48f, 0.8f);
    std::vector<osg::Vec4f> planes;
    for (std::size_t i = 0; i < planeCount; ++i) {
        const float height = 1.8f * (static_cast<float>(i) + 0.5f) / static_cast<float>(planeCount) - 0.9f;
        planes.emplace_back(normal[0], normal[1], normal[2], -height - normal.dot(osg::Vec3f(centre)));
    }
    return planes;
}

/// Where a plane meets a vertex, the slice may have a segment once in each direction.
bool leadsBack(const measurement::Segment& segment, const measurement::Segment& previous) {
    const float rounding = 1e-5f;
    return segment.start.dist(previous.end) < rounding && segment.end.dist(previous.start) < rounding;
}

double lengthOf(const std::list<measurement::Segment>& outline) {
    double length = 0.0;
    const measurement::Segment* previous = nullptr;
    for (const measurement::Segment& segment : outline) {
        if (!previous || !leadsBack(segment, *previous)) length += static_cast<double>(segment.start.dist(segment.end));
        previous = &segment;
    }
    return length;
}

/// From the scene node to the length of the last outline. Ours begins anew with every plane, the peers build once.
void measureSlices(benchmark::State& state, std::size_t triangleCount, std::size_t planeCount) {
    const PlacedMesh mesh(shape, triangleCount, test::translated(centre[0], centre[1], centre[2]));
    const std::vector<osg::Vec4f> planes = createPlanes(planeCount);
    const SlicePeers peers = createSlicePeers(mesh.world);
    std::vector<std::vector<double>> peerLengths(peers.size(), std::vector<double>(planeCount));
    std::vector<double> lengths(planeCount);
    std::list<measurement::Segment> outline;
    const auto measureOurs = [&] {
        for (std::size_t p = 0; p < planeCount; ++p) {
            measurement::GeometrySliceFactory().createSlice(mesh.object, planes[p], outline);
            lengths[p] = lengthOf(outline);
        }
    };
    std::vector<Contestant> contestants{{"ours", measureOurs}};
    for (std::size_t i = 0; i < peers.size(); ++i) {
        const auto work = [&, i] {
            peers[i]->build();
            for (std::size_t p = 0; p < planeCount; ++p) peerLengths[i][p] = peers[i]->findOutlineLength(planes[p]);
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
