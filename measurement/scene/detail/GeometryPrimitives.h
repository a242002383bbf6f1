#pragma once

#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGLineIterator.h>
#include <OpenSG/OSGTriangleIterator.h>

#include <measurement/geometry/Primitives.h>
#include <measurement/scene/detail/GeometryRepair.h>

namespace tesk::measurement::detail {

/// The positions of a geometry by index, read straight from the array where there is one.
class GeometryPositions {
public:
    explicit GeometryPositions(const osg::GeometryPtr& geometry);

    bool isEmpty() const { return count == 0; }
    osg::UInt32 size() const { return count; }
    bool contains(osg::Int32 index) const { return index >= 0 && static_cast<osg::UInt32>(index) < count; }
    /// Null where the positions are not an array of osg::Pnt3f.
    const osg::Pnt3f* getArray() const { return points; }
    osg::Pnt3f operator[](osg::Int32 index) const {
        const auto i = static_cast<osg::UInt32>(index);
        return points != nullptr ? points[i] : positions->getValue(i);
    }

private:
    osg::GeoPositionsPtr positions;
    const osg::Pnt3f* points = nullptr;
    osg::UInt32 count = 0;
};

/// Calls visit(i0, i1, i2) with the position indices of every triangle of the geometry, in the order of
/// osg::TriangleIterator. A triangle with an index beyond the positions, which are the geometry's, is left out.
template <class Visitor>
void forEachTriangleByIndex(const osg::GeometryPtr& geometry, const GeometryPositions& positions, Visitor visit) {
    if (positions.isEmpty()) return;
    const osg::RefPtr<osg::GeometryPtr> repaired = createWalkable(geometry);
    const osg::GeometryPtr walkable = repaired ? repaired.get() : geometry;
    const osg::TriangleIterator end = walkable->endTriangles();
    for (osg::TriangleIterator it = walkable->beginTriangles(); it != end; ++it) {
        const osg::Int32 i0 = it.getPositionIndex(0);
        const osg::Int32 i1 = it.getPositionIndex(1);
        const osg::Int32 i2 = it.getPositionIndex(2);
        if (positions.contains(i0) && positions.contains(i1) && positions.contains(i2)) visit(i0, i1, i2);
    }
}

/// Calls visit(triangle) for the same triangles, in local coordinates.
template <class Visitor> void forEachTriangle(const osg::GeometryPtr& geometry, Visitor visit) {
    const GeometryPositions positions(geometry);
    forEachTriangleByIndex(geometry, positions, [&](osg::Int32 i0, osg::Int32 i1, osg::Int32 i2) {
        visit(Triangle{positions[i0], positions[i1], positions[i2]});
    });
}

/// Calls visit(i0, i1) with the position indices of every line of the geometry, in the order of
/// osg::LineIterator. A line with an index beyond the positions, which are the geometry's, is left out.
template <class Visitor>
void forEachLineByIndex(const osg::GeometryPtr& geometry, const GeometryPositions& positions, Visitor visit) {
    if (positions.isEmpty()) return;
    const osg::RefPtr<osg::GeometryPtr> repaired = createWalkable(geometry);
    const osg::GeometryPtr walkable = repaired ? repaired.get() : geometry;
    const osg::LineIterator end = walkable->endLines();
    for (osg::LineIterator it = walkable->beginLines(); it != end; ++it) {
        const osg::Int32 i0 = it.getPositionIndex(0);
        const osg::Int32 i1 = it.getPositionIndex(1);
        if (positions.contains(i0) && positions.contains(i1)) visit(i0, i1);
    }
}

/// Calls visit(segment) for the same lines, in local coordinates.
template <class Visitor> void forEachLine(const osg::GeometryPtr& geometry, Visitor visit) {
    const GeometryPositions positions(geometry);
    forEachLineByIndex(geometry, positions, [&](osg::Int32 i0, osg::Int32 i1) {
        visit(Segment{positions[i0], positions[i1]});
    });
}

} // namespace tesk::measurement::detail
