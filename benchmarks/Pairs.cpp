#include <benchmarks/Pairs.h>

#include <benchmarks/Comparison.h>
#include <benchmarks/Works.h>

#include <OpenSG/OSGMatrix.h>

#include <support/Random.h>

#include <algorithm>

namespace tesk::benchmarks {

namespace {

const Shape sphere{"sphere", test::sphere};
const Shape torus{"torus", test::torus};
const Shape bumpySphere{"bumpySphere", test::bumpySphere};
const Shape terrain{"terrain", test::terrain};

/// The same triangles in random order, as many programs and scanners write them.
test::Mesh shuffle(test::Mesh mesh) {
    test::Random random(1);
    for (std::size_t left = mesh.indices.size() / 3; left > 1; --left) {
        const std::size_t chosen = random.below(static_cast<std::uint32_t>(left));
        std::swap_ranges(mesh.indices.begin() + static_cast<std::ptrdiff_t>(3 * chosen),
                         mesh.indices.begin() + static_cast<std::ptrdiff_t>(3 * chosen + 3),
                         mesh.indices.begin() + static_cast<std::ptrdiff_t>(3 * (left - 1)));
    }
    return mesh;
}

/// A quarter turn about the x axis, and along it until the tubes almost meet: a torus becomes the next link of a chain.
const osg::Matrix nextLink(1, 0, 0, 1.25f, 0, 0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1);

float findLongestEdge(const test::Mesh& mesh) {
    float longest = 0.0f;
    for (std::size_t i = 0; i < mesh.indices.size(); i += 3) {
        for (std::size_t corner = 0; corner < 3; ++corner) {
            const osg::Pnt3f& start = mesh.positions[mesh.indices[i + corner]];
            const osg::Pnt3f& end = mesh.positions[mesh.indices[i + (corner + 1) % 3]];
            longest = std::max(longest, start.dist(end));
        }
    }
    return longest;
}

} // namespace

const std::vector<Shape> shapes{sphere, torus, bumpySphere};
const Shape shuffledSphere{"sphere_shuffled", [](std::size_t count) { return shuffle(test::sphere(count)); }};
const Shape shuffledBumpySphere{"bumpySphere_shuffled",
                                [](std::size_t count) { return shuffle(test::bumpySphere(count)); }};

const std::vector<Pair> pairs{
    {"apart", sphere, bumpySphere, test::translated(1.5f, 1.5f, 0.75f)},
    {"near", torus, bumpySphere, test::translated(2.4f, 0, 0)},
    {"touching", sphere, sphere, test::translated(2, 0, 0)},
    {"nested", bumpySphere, sphere, test::scaled(0.86f), true},
    {"interlocked", torus, torus, nextLink, true},
    {"parallel", terrain, terrain, test::translated(0.004f, 0.003f, 0.02f)},
    {"overlapping", sphere, sphere, test::translated(0.7f, 0.4f, 0.3f)},
};

const Pair& getPair(const std::string& name) {
    return *std::find_if(pairs.begin(), pairs.end(), [&](const Pair& pair) { return pair.name == name; });
}

PlacedMesh::PlacedMesh(const Shape& shape, std::size_t triangleCount, const osg::Matrix& placement)
    : world(shape.create(triangleCount)) {
    geometry = test::geometry(world);
    object = test::transform(placement, {geometry});
    for (osg::Pnt3f& position : world.positions) placement.multMatrixPnt(osg::Pnt3f(position), position);
    longestEdge = findLongestEdge(world);
}

PlacedPair::PlacedPair(const Pair& pair, std::size_t triangleCount)
    : first(pair.first, triangleCount, test::translated(0, 0, 0)), second(pair.second, triangleCount, pair.placement),
      root(test::group({first.object, second.object})), longestEdge(std::max(first.longestEdge, second.longestEdge)) {}

void addPairRows(const std::string& work,
                 void (*measure)(benchmark::State& state, const Pair& pair, std::size_t triangleCount),
                 std::size_t closePairLimit) {
    for (const std::size_t count : triangleCounts) {
        for (const Pair& pair : pairs) {
            const std::string name = work + "/" + pair.name + "/" + std::to_string(count);
            addRow(name, count, pair.fitsClosely && count > closePairLimit, measure, pair, count);
        }
    }
}

} // namespace tesk::benchmarks
