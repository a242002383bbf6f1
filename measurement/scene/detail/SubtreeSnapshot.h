#pragma once

#include <OpenSG/OSGNode.h>

#include <measurement/acceleration/TriangleMesh.h>

#include <memory>
#include <vector>

namespace tesk::measurement::detail {

class GeometrySnapshot;

/// The triangles of all geometries below a node as arrays, in world coordinates: those that
/// BoundingVolumeTree::build(node, true) takes, in its order. Ends with any change of the scene.
class SubtreeSnapshot {
public:
    /// Empty for a null node.
    explicit SubtreeSnapshot(const osg::NodePtr& root);
    ~SubtreeSnapshot();

    const acceleration::TriangleMesh& getMesh() const { return mesh; }

private:
    void append(const acceleration::TriangleMesh& part);

    acceleration::TriangleMesh mesh;
    /// The only geometry with triangles, if there is one; several are copied together.
    std::unique_ptr<GeometrySnapshot> single;
    std::vector<osg::Pnt3f> positions;
    std::vector<std::uint32_t> corners;
};

} // namespace tesk::measurement::detail
