#pragma once

#include <support/Scenes.h>

#include <memory>
#include <string>
#include <vector>

namespace tesk::benchmarks {

/// Another library's distances between meshes. The meshes are in its own types already: build() makes its structures
/// from them, clear() drops these.
class MeshDistancePeer {
public:
    virtual ~MeshDistancePeer() = default;
    /// As in the names of counters.
    virtual std::string getName() const = 0;
    virtual void build() = 0;
    /// The distance between the first two meshes.
    virtual double findDistance() = 0;
    virtual void clear() = 0;
};

/// The same for the distance of points to one mesh.
class PointDistancePeer {
public:
    virtual ~PointDistancePeer() = default;
    virtual std::string getName() const = 0;
    virtual void build() = 0;
    virtual double findDistance(const osg::Pnt3f& point) = 0;
    virtual void clear() = 0;
};

/// The same for the sections of one mesh.
class SlicePeer {
public:
    virtual ~SlicePeer() = default;
    virtual std::string getName() const = 0;
    virtual void build() = 0;
    /// The length of all lines together in which the plane (a, b, c, d), where a*x + b*y + c*z + d = 0, cuts the mesh.
    virtual double findOutlineLength(const osg::Vec4f& plane) = 0;
    virtual void clear() = 0;
};

using MeshDistancePeers = std::vector<std::unique_ptr<MeshDistancePeer>>;
using PointDistancePeers = std::vector<std::unique_ptr<PointDistancePeer>>;
using SlicePeers = std::vector<std::unique_ptr<SlicePeer>>;

/// All that are in this build, perhaps none. Meshes in one frame.
MeshDistancePeers createMeshDistancePeers(const std::vector<test::Mesh>& meshes);
PointDistancePeers createPointDistancePeers(const test::Mesh& mesh);
SlicePeers createSlicePeers(const test::Mesh& mesh);

/// "FCL CGAL", or "none".
std::string listPeers();

} // namespace tesk::benchmarks
