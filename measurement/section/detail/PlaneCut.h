#pragma once

#include <OpenSG/OSGGL.h>
#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGNode.h>

#include <measurement/acceleration/vector/QuadBox.h>
#include <measurement/geometry/Primitives.h>
#include <measurement/geometry/detail/Box.h>
#include <measurement/geometry/detail/VectorMath.h>
#include <measurement/section/detail/PositionArray.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

/// How a plane cuts a box and a triangle, and where a geometry's triangles are.
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

/// Up to this difference in each coordinate two cut points are the same.
constexpr float samePointTolerance = 1e-6f;

inline bool areSame(const osg::Pnt3f& a, const osg::Pnt3f& b) {
    const osg::Vec3f offset = difference(a, b);
    return std::fabs(offset[0]) <= samePointTolerance && std::fabs(offset[1]) <= samePointTolerance &&
           std::fabs(offset[2]) <= samePointTolerance;
}

/// Cuts triangles of one geometry with one plane.
///
/// What three corners or three edges have is computed side by side, with the operations of Plane, of pointAt() and of
/// osg::Matrix::multMatrixPnt() on each.
class TriangleCutter {
public:
    /// Normal and offset are those of the plane in local coordinates.
    TriangleCutter(const osg::Vec3f& localNormal, float localOffset, const osg::Matrix& toWorld) : offset(localOffset) {
        for (osg::UInt32 axis = 0; axis < 3; ++axis) {
            normal[axis] = localNormal[axis] - Quad{};
            for (osg::UInt32 column = 0; column < 4; ++column) matrix[axis][column] = toWorld[column][axis] - Quad{};
        }
    }

    /// Appends the cut of a triangle that has corners on both sides, in world coordinates.
    void cut(const osg::Pnt3f& p0, const osg::Pnt3f& p1, const osg::Pnt3f& p2, std::vector<Segment>& segments) const {
        const Quad x{p0[0], p1[0], p2[0], p2[0]}, y{p0[1], p1[1], p2[1], p2[1]}, z{p0[2], p1[2], p2[2], p2[2]};
        const Quad distances = normal[0] * x + normal[1] * y + normal[2] * z + offset;
        const Quad parameters = starts(distances) / (starts(distances) - ends(distances));
        // NaN is on no edge.
        const acceleration::QuadMask isOn = (parameters >= Quad{}) & (parameters <= Quad{} + 1.0f);
        const bool isOn01 = isOn[0] != 0, isOn02 = isOn[1] != 0, areBothOn = isOn01 & isOn02;
        if (!(isOn01 | isOn02)) return;
        const Crossings crossings(toWorld(onEdges(x, parameters), onEdges(y, parameters), onEdges(z, parameters)));
        // Chosen by number: which edges are met changes too often for branches to be foreseen.
        crossings.append(isOn01 ? 0 : 1, areBothOn ? 1 : 2, segments);
        // A corner lies on the plane, so that the third edge is met as well, mostly in that corner.
        if (areBothOn && isOn[2] != 0) crossings.appendUnlessSame(1, 2, segments);
    }

private:
    using Quad = acceleration::Quad;
    struct Coordinates {
        Quad x, y, z;
    };

    /// The points on the edges 01, 02 and 12.
    class Crossings {
    public:
        explicit Crossings(const Coordinates& all) {
            const Quad xy = __builtin_shufflevector(all.x, all.y, 0, 4, 1, 5);
            points[0] = __builtin_shufflevector(xy, all.z, 0, 1, 4, 4);
            points[1] = __builtin_shufflevector(xy, all.z, 2, 3, 5, 5);
            points[2] = __builtin_shufflevector(__builtin_shufflevector(all.x, all.y, 2, 6, 2, 6), all.z, 0, 1, 6, 6);
        }
        void append(int first, int second, std::vector<Segment>& segments) const {
            Segment& segment = segments.emplace_back();
            store(first, segment.start);
            store(second, segment.end);
        }
        void appendUnlessSame(int first, int second, std::vector<Segment>& segments) const {
            append(first, second, segments);
            if (areSame(segments.back().end, segments.back().start)) segments.pop_back();
        }

    private:
        void store(int edge, osg::Pnt3f& point) const {
            std::memcpy(static_cast<void*>(&point), &points[edge], sizeof point);
        }

        Quad points[3];
    };

    // The corners where edges begin and end.
    static Quad starts(const Quad& corners) { return __builtin_shufflevector(corners, corners, 0, 0, 1, 1); }
    static Quad ends(const Quad& corners) { return __builtin_shufflevector(corners, corners, 1, 2, 2, 2); }
    static Quad onEdges(const Quad& corners, const Quad& parameters) {
        return starts(corners) + parameters * (ends(corners) - starts(corners));
    }

    Coordinates toWorld(const Quad& x, const Quad& y, const Quad& z) const {
        const auto row = [&](const Quad(&m)[4]) { return m[0] * x + m[1] * y + m[2] * z + m[3]; };
        return {row(matrix[0]), row(matrix[1]), row(matrix[2])};
    }

    Quad normal[3];
    /// By row and column, for points as columns.
    Quad matrix[3][4];
    float offset;
};

inline bool isTriangleList(const osg::GeometryPtr& geometry) {
    const osg::GeoPLengthsPtr lengths = geometry->getLengths();
    const osg::GeoPTypesPtr types = geometry->getTypes();
    return geometry->getIndices() != osg::NullFC && lengths != osg::NullFC && lengths->getSize() == 1 &&
           types != osg::NullFC && types->getSize() > 0 && types->getValue(0) == GL_TRIANGLES;
}

/// The indices of a triangle list as TriListI16TriangleIterator or TriListI32TriangleIterator reads them, three for
/// each of `count` triangles, whether there are such positions or not.
template <class Index> struct TriangleIndices {
    template <class IndicesPtr> TriangleIndices(const osg::GeometryPtr& geometry, const IndicesPtr& indices) {
        const std::size_t inWholeTriangles = indices->getSize() / 3;
        if (inWholeTriangles == 0) return;
        first = &indices->getField()[0];
        // The first index lies within the primitive.
        count = std::min<std::size_t>((std::size_t(geometry->getLengths()->getValue(0)) + 2) / 3, inWholeTriangles);
    }

    const Index* first = nullptr;
    std::size_t count = 0;
};

/// About as many corners as the geometry's primitives have.
inline std::uint64_t countCorners(const osg::GeometryPtr& geometry) {
    const osg::GeoPLengthsPtr lengths = geometry->getLengths();
    std::uint64_t count = 0;
    for (osg::UInt32 i = 0; lengths != osg::NullFC && i < lengths->getSize(); ++i) count += lengths->getValue(i);
    return count;
}

} // namespace tesk::measurement::detail
