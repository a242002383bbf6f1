#pragma once

#include <benchmark/benchmark.h>
#include <support/Scenes.h>

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace tesk::benchmarks {

/// A surface of about the given number of triangles and of size 1, more or less.
struct Shape {
    const char* name;
    test::Mesh (*create)(std::size_t triangleCount);
};

extern const std::vector<Shape> shapes;
/// Triangles next to each other in the mesh are so nowhere else.
extern const Shape shuffledSphere;
extern const Shape shuffledBumpySphere;

/// Two shapes and how they lie to each other.
struct Pair {
    const char* name;
    Shape first;
    Shape second;
    /// Moves the second shape; the first stays where it is.
    osg::Matrix placement;
    /// Whether the surfaces run close to each other over a wide area, which the plain search takes very long for.
    bool fitsClosely = false;
};

extern const std::vector<Pair> pairs;
/// The one of that name, which there must be.
const Pair& getPair(const std::string& name);

/// A mesh in a scene, below a transform, and its copy in world coordinates, which peers are given.
struct PlacedMesh {
    PlacedMesh(const Shape& shape, std::size_t triangleCount, const osg::Matrix& placement);

    std::size_t countTriangles() const { return world.indices.size() / 3; }

    test::SceneNode geometry;
    test::SceneNode object;
    test::Mesh world;
    float longestEdge;
};

/// A pair as objects in one scene.
struct PlacedPair {
    PlacedPair(const Pair& pair, std::size_t triangleCount);

    std::size_t countTriangles() const { return first.countTriangles() + second.countTriangles(); }

    PlacedMesh first;
    PlacedMesh second;
    test::SceneNode root;
    float longestEdge;
};

/// Adds the rows `WORK/PAIR/COUNT` for all pairs and numbers of triangles; close-fitting pairs of more than
/// `closePairLimit` triangles give a row that says so.
void addPairRows(const std::string& work,
                 void (*measure)(benchmark::State& state, const Pair& pair, std::size_t triangleCount),
                 std::size_t closePairLimit = std::numeric_limits<std::size_t>::max());

} // namespace tesk::benchmarks
