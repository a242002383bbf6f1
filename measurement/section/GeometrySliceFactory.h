#pragma once

#include <OpenSG/OSGNode.h>

#include <measurement/Export.h>
#include <measurement/geometry/Primitives.h>

#include <functional>
#include <list>
#include <vector>

namespace tesk::measurement {

/// Cuts the triangles below a scene node with a plane: the outline of a section.
///
/// Plane and segments are in world coordinates. The plane (a, b, c, d) is where a*x + b*y + c*z + d = 0; its normal
/// (a, b, c) may have any length. Children are those of ChildEnumerator. A node whose traversal mask is not all ones is
/// skipped with everything below it, and so is a node whose world volume lies on one side of the plane; an empty volume
/// counts with the bounds that it has.
///
/// Segments follow the order of the walk, parents first, and of the triangles. A vertex on the plane counts as being on
/// the positive side. So a triangle in the plane gives nothing, and neither does one that touches it from the positive
/// side; one that touches it from the negative side with a vertex gives a segment of length zero, and one that is cut
/// through a vertex may give the same segment once in each direction. Where a coordinate is NaN, a segment may be.
///
/// Geometries need osg::GeoPositions3f; others, points and lines give nothing. A geometry whose lengths have one entry,
/// whose first type is triangles and that has indices is read by TriListI16TriangleIterator or, unless its indices have
/// 16 bits, by TriListI32TriangleIterator, whatever its index mapping: with two indices for a vertex, as in a sphere of
/// osg::makeSphere(), the outline is that of wrongly joined vertices. All others are read by GenericTriangleIterator.
///
/// Cost: linear in the nodes met and in the triangles of the geometries that the plane may meet. Parallel planes at
/// once cost little more than one of them and the segments that come out.
///
/// \code
/// std::list<Segment> outline;
/// GeometrySliceFactory().createSlice(part, osg::Vec4f(0, 0, 1, -height), outline);
/// \endcode
class TESK_MEASUREMENT_EXPORT GeometrySliceFactory {
public:
    using OutlineVisitor = std::function<void(const std::vector<Segment>& outline)>;

    /// Replaces what the list holds by the outline; by nothing for a null node.
    void createSlice(const osg::NodePtr& node, const osg::Vec4f& cuttingPlane, std::list<Segment>& outline);
    /// Calls visit(outline) for each of the planes (normal, offset), one after the other: with the segments that
    /// createSlice() gives for it, perhaps none. An outline is there for the time of the call, during which the scene
    /// must not change. Memory does not grow with the number of planes.
    void createSlices(const osg::NodePtr& node, const osg::Vec3f& normal, const std::vector<float>& offsets,
                      const OutlineVisitor& visit);

private:
    void createSliceRec(const osg::NodePtr& node);

    osg::Vec4f plane{0.0f, 0.0f, 0.0f, 0.0f};
    std::list<Segment>* segments = nullptr;
};

} // namespace tesk::measurement
