#pragma once

#include <support/Scenes.h>

#include <memory>
#include <string>
#include <vector>

namespace tesk::benchmarks {

/// Another library that is given the same meshes as ours. They are in its own types already: build() makes its
/// structures from them, clear() drops these.
class Peer {
public:
    virtual ~Peer() = default;
    /// As in the names of counters.
    virtual std::string getName() const = 0;
    /// What an application does once, and what is not timed. Before each build().
    virtual void prepare() {}
    virtual void build() = 0;
    virtual void clear() = 0;
};

class MeshDistancePeer : public Peer {
public:
    /// The distance between the first two meshes.
    virtual double findDistance() = 0;
};

class PointDistancePeer : public Peer {
public:
    /// The distance of a point to the one mesh.
    virtual double findDistance(const osg::Pnt3f& point) = 0;
};

using Outline = std::vector<measurement::Segment>;

class OutlineDistancePeer : public Peer {
public:
    /// The distance of the outline of that number to the one mesh. The outlines, too, are in its own types already,
    /// without a structure.
    virtual double findDistance(std::size_t outline) = 0;
};

class SlicePeer : public Peer {
public:
    /// For each of the planes (normal, offset) the length of all lines together in which it cuts the one mesh.
    /// The offsets descend.
    virtual std::vector<double> findOutlineLengths(const osg::Vec3f& normal, const std::vector<float>& offsets) = 0;
};

using MeshDistancePeers = std::vector<std::unique_ptr<MeshDistancePeer>>;
using PointDistancePeers = std::vector<std::unique_ptr<PointDistancePeer>>;
using OutlineDistancePeers = std::vector<std::unique_ptr<OutlineDistancePeer>>;
using SlicePeers = std::vector<std::unique_ptr<SlicePeer>>;

/// All that are in this build, perhaps none. Meshes in one frame.
MeshDistancePeers createMeshDistancePeers(const std::vector<test::Mesh>& meshes);
PointDistancePeers createPointDistancePeers(const test::Mesh& mesh);
OutlineDistancePeers createOutlineDistancePeers(const test::Mesh& mesh, const std::vector<Outline>& outlines);
SlicePeers createSlicePeers(const test::Mesh& mesh);

/// "FCL CGAL", or "none".
std::string listPeers();

} // namespace tesk::benchmarks
