#pragma once

#include <OpenSG/OSGGL.h>
#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGNode.h>

#include <measurement/geometry/Primitives.h>
#include <measurement/geometry/detail/Box.h>
#include <measurement/geometry/detail/VectorMath.h>
#include <measurement/section/GenericTriangleIterator.h>
#include <measurement/section/TriListI16TriangleIterator.h>
#include <measurement/section/TriListI32TriangleIterator.h>
#include <measurement/section/detail/PositionArray.h>

#include <cmath>
#include <cstdint>

/// How a plane cuts a box and the triangles of a geometry.
namespace tesk::measurement::detail {

/// The points where normal * point + offset = 0.
struct Plane {
    osg::Vec3f normal;
    float offset;

    Plane(const osg::Vec3f& planeNormal, float planeOffset) : normal(planeNormal), offset(planeOffset) {}
    /// The world plane in local coordinates, such that signed distances stay the same. The local normal and what is
    /// added to the offset depend on the world normal alone.
    Plane(const Plane& world, const osg::Matrix& toWorld)
        : normal(alongColumn(world, toWorld, 0), alongColumn(world, toWorld, 1), alongColumn(world, toWorld, 2)),
          offset(world.offset + alongColumn(world, toWorld, 3)) {}

private:
    static float alongColumn(const Plane& world, const osg::Matrix& matrix, osg::UInt32 column) {
        return dot(osg::Vec3f(matrix[column][0], matrix[column][1], matrix[column][2]), world.normal);
    }
};

/// A box seen from parallel planes, along their normal.
struct BoxHeights {
    float centre;
    float reach = 0.0f;

    BoxHeights(const Box& box, const osg::Vec3f& normal) {
        osg::Vec3f middle;
        for (osg::UInt32 axis = 0; axis < 3; ++axis) {
            middle[axis] = (box.min[axis] + box.max[axis]) * 0.5f;
            reach += std::fabs((box.max[axis] - box.min[axis]) * 0.5f * normal[axis]);
        }
        centre = dot(normal, middle);
    }

    // Both are false for NaN, so that such a box is looked into.
    bool areBelow(float planeOffset) const { return centre + planeOffset + reach < 0.0f; }
    bool areAbove(float planeOffset) const { return centre + planeOffset - reach > 0.0f; }
};

struct Corner {
    osg::Pnt3f position;
    float distance;
};

/// Where the line through two corners meets the plane.
struct Crossing {
    const Corner& from;
    const Corner& to;
    float parameter;

    Crossing(const Corner& first, const Corner& second)
        : from(first), to(second), parameter(first.distance / (first.distance - second.distance)) {}

    // NaN is on no edge.
    bool isOnEdge() const { return 0.0f <= parameter && parameter <= 1.0f; }
    osg::Pnt3f inWorld(const osg::Matrix& toWorld) const {
        osg::Pnt3f point = pointAt(from.position, parameter, difference(to.position, from.position));
        toWorld.multMatrixPnt(point);
        return point;
    }
};

/// Up to this difference in each coordinate two cut points are the same.
constexpr float samePointTolerance = 1e-6f;

inline bool areSame(const osg::Pnt3f& a, const osg::Pnt3f& b) {
    const osg::Vec3f offset = difference(a, b);
    return std::fabs(offset[0]) <= samePointTolerance && std::fabs(offset[1]) <= samePointTolerance &&
           std::fabs(offset[2]) <= samePointTolerance;
}

/// Appends the cut of a triangle that has corners on both sides to a sequence of segments.
template <class Segments> void cutTriangle(const Corner (&corners)[3], const osg::Matrix& toWorld, Segments& segments) {
    const Crossing crossings[] = {{corners[0], corners[1]}, {corners[0], corners[2]}, {corners[1], corners[2]}};
    const bool isOn01 = crossings[0].isOnEdge(), isOn02 = crossings[1].isOnEdge();
    if (!isOn01 && !isOn02) return;
    // Chosen by number: which edges are met changes too often for branches to be foreseen.
    const Crossing& first = crossings[isOn01 ? 0 : 1];
    const Crossing& second = crossings[(isOn01 & isOn02) ? 1 : 2];
    const osg::Pnt3f end = second.inWorld(toWorld);
    segments.push_back({first.inWorld(toWorld), end});
    if (!(isOn01 & isOn02) || !crossings[2].isOnEdge()) return;
    // A corner lies on the plane, so that the third edge is met as well, mostly in that corner.
    const osg::Pnt3f third = crossings[2].inWorld(toWorld);
    if (!areSame(third, end)) segments.push_back({end, third});
}

inline bool isTriangleList(const osg::GeometryPtr& geometry) {
    const osg::GeoPLengthsPtr lengths = geometry->getLengths();
    const osg::GeoPTypesPtr types = geometry->getTypes();
    return geometry->getIndices() != osg::NullFC && lengths != osg::NullFC && lengths->getSize() == 1 &&
           types != osg::NullFC && types->getSize() > 0 && types->getValue(0) == GL_TRIANGLES;
}

/// Calls visit(iterator) with the iterator that reads the node's geometry, at its first triangle; with none if the node
/// has no geometry.
template <class Visitor> void withTriangles(const osg::NodePtr& node, Visitor visit) {
    const osg::GeometryPtr geometry = getGeometry(node);
    if (geometry == osg::NullFC) return;
    if (!isTriangleList(geometry))
        visit(GenericTriangleIterator(node));
    else if (osg::GeoIndicesUI16Ptr::dcast(geometry->getIndices()) != osg::NullFC)
        visit(TriListI16TriangleIterator(node));
    else
        visit(TriListI32TriangleIterator(node));
}

/// About as many corners as the geometry's primitives have.
inline std::uint64_t countCorners(const osg::GeometryPtr& geometry) {
    const osg::GeoPLengthsPtr lengths = geometry->getLengths();
    std::uint64_t count = 0;
    for (osg::UInt32 i = 0; lengths != osg::NullFC && i < lengths->getSize(); ++i) count += lengths->getValue(i);
    return count;
}

} // namespace tesk::measurement::detail
