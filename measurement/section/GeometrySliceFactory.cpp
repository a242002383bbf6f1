#include <measurement/section/GeometrySliceFactory.h>

#include <measurement/geometry/detail/VectorMath.h>
#include <measurement/scene/detail/SubtreeWalk.h>
#include <measurement/scene/detail/WorldBox.h>
#include <measurement/section/GenericTriangleIterator.h>
#include <measurement/section/TriListI16TriangleIterator.h>
#include <measurement/section/TriListI32TriangleIterator.h>
#include <measurement/section/detail/PositionArray.h>

#include <OpenSG/OSGGL.h>

#include <cmath>

namespace tesk::measurement {

namespace {

constexpr osg::UInt32 fullTraversalMask = 0xFFFFFFFF;

/// Up to this difference in each coordinate two cut points are the same.
constexpr float samePointTolerance = 1e-6f;

/// The points where normal * point + offset = 0.
struct Plane {
    osg::Vec3f normal;
    float offset;

    explicit Plane(const osg::Vec4f& plane) : normal(plane[0], plane[1], plane[2]), offset(plane[3]) {}
    /// The world plane in local coordinates, such that signed distances stay the same.
    Plane(const Plane& world, const osg::Matrix& toWorld)
        : normal(alongColumn(world, toWorld, 0), alongColumn(world, toWorld, 1), alongColumn(world, toWorld, 2)),
          offset(world.offset + alongColumn(world, toWorld, 3)) {}

    float signedDistance(const osg::Pnt3f& point) const { return detail::dot(normal, osg::Vec3f(point)) + offset; }

private:
    static float alongColumn(const Plane& world, const osg::Matrix& matrix, osg::UInt32 column) {
        return detail::dot(osg::Vec3f(matrix[column][0], matrix[column][1], matrix[column][2]), world.normal);
    }
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
        osg::Pnt3f point = detail::pointAt(from.position, parameter, detail::difference(to.position, from.position));
        toWorld.multMatrixPnt(point);
        return point;
    }
};

bool areSame(const osg::Pnt3f& a, const osg::Pnt3f& b) {
    const osg::Vec3f offset = detail::difference(a, b);
    return std::fabs(offset[0]) <= samePointTolerance && std::fabs(offset[1]) <= samePointTolerance &&
           std::fabs(offset[2]) <= samePointTolerance;
}

/// Appends the cut of a triangle that has corners on both sides.
void cutTriangle(const Corner (&corners)[3], const osg::Matrix& toWorld, std::list<Segment>& segments) {
    const Crossing crossing01(corners[0], corners[1]);
    const Crossing crossing02(corners[0], corners[2]);
    const Crossing crossing12(corners[1], corners[2]);
    if (crossing01.isOnEdge() && crossing02.isOnEdge()) {
        const osg::Pnt3f end = crossing02.inWorld(toWorld);
        segments.push_back({crossing01.inWorld(toWorld), end});
        // A corner lies on the plane, so that the third edge is met as well, mostly in that corner.
        if (!crossing12.isOnEdge()) return;
        const osg::Pnt3f third = crossing12.inWorld(toWorld);
        if (!areSame(third, end)) segments.push_back({end, third});
    } else if (crossing01.isOnEdge() || crossing02.isOnEdge()) {
        const Crossing& first = crossing01.isOnEdge() ? crossing01 : crossing02;
        segments.push_back({first.inWorld(toWorld), crossing12.inWorld(toWorld)});
    }
}

bool isTriangleList(const osg::GeometryPtr& geometry) {
    const osg::GeoPLengthsPtr lengths = geometry->getLengths();
    const osg::GeoPTypesPtr types = geometry->getTypes();
    return geometry->getIndices() != osg::NullFC && lengths != osg::NullFC && lengths->getSize() == 1 &&
           types != osg::NullFC && types->getSize() > 0 && types->getValue(0) == GL_TRIANGLES;
}

} // namespace

void GeometrySliceFactory::createSlice(const osg::NodePtr& node, const osg::Vec4f& cuttingPlane,
                                       std::list<Segment>& outline) {
    plane = cuttingPlane;
    segments = &outline;
    segments->clear();
    createSliceRec(node);
}

void GeometrySliceFactory::createSliceRec(const osg::NodePtr& node) {
    detail::visitSubtreeWhere(node, [this](const osg::NodePtr& visited) {
        if (visited->getTravMask() != fullTraversalMask || isOnOneSide(visited)) return false;
        addSlice(visited);
        return true;
    });
}

bool GeometrySliceFactory::isOnOneSide(const osg::NodePtr& node) const {
    const detail::Box box = detail::getWorldBox(node).bounds;
    osg::Pnt3f centre;
    float reach = 0.0f;
    for (osg::UInt32 axis = 0; axis < 3; ++axis) {
        centre[axis] = (box.min[axis] + box.max[axis]) * 0.5f;
        reach += std::fabs((box.max[axis] - box.min[axis]) * 0.5f * plane[axis]);
    }
    const float distance = Plane(plane).signedDistance(centre);
    // Both are false for NaN, so that such a node is looked into.
    return distance + reach < 0.0f || distance - reach > 0.0f;
}

void GeometrySliceFactory::addSlice(const osg::NodePtr& node) {
    const osg::GeometryPtr geometry = detail::getGeometry(node);
    if (geometry == osg::NullFC) return;
    if (!isTriangleList(geometry))
        addGenericSlice<GenericTriangleIterator>(node);
    else if (osg::GeoIndicesUI16Ptr::dcast(geometry->getIndices()) != osg::NullFC)
        addGenericSlice<TriListI16TriangleIterator>(node);
    else
        addGenericSlice<TriListI32TriangleIterator>(node);
}

template <class Iterator> void GeometrySliceFactory::addGenericSlice(const osg::NodePtr& node) {
    const osg::Matrix toWorld = node->getToWorld();
    const Plane localPlane(Plane(plane), toWorld);
    for (Iterator triangle(node); !triangle.isAtEnd(); ++triangle) {
        Corner corners[3];
        int below = 0;
        for (osg::UInt32 i = 0; i < 3; ++i) {
            const osg::Pnt3f& position = triangle.getPosition(i);
            corners[i] = {position, localPlane.signedDistance(position)};
            below += corners[i].distance < 0.0f;
        }
        if (below == 1 || below == 2) cutTriangle(corners, toWorld, *segments);
    }
}

} // namespace tesk::measurement
