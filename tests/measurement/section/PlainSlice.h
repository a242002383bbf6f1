#pragma once

#include <measurement/geometry/Primitives.h>
#include <measurement/scene/ChildEnumerator.h>
#include <measurement/section/GenericTriangleIterator.h>
#include <measurement/section/TriListI16TriangleIterator.h>
#include <measurement/section/TriListI32TriangleIterator.h>

#include <OpenSG/OSGDynamicVolume.h>
#include <OpenSG/OSGGL.h>

#include <cmath>
#include <list>

namespace tesk::test {

/// What GeometrySliceFactory::createSlice() has to give, bit for bit: plane by plane, triangle by triangle.
class PlainSlice {
public:
    PlainSlice(const osg::NodePtr& root, const osg::Vec4f& cuttingPlane) : plane(cuttingPlane) { visit(root); }

    std::list<measurement::Segment> segments;

private:
    struct Corner {
        osg::Pnt3f position;
        float distance;
    };

    static float signedDistance(const osg::Vec4f& plane, const osg::Pnt3f& point) {
        return plane[0] * point[0] + plane[1] * point[1] + plane[2] * point[2] + plane[3];
    }

    void visit(const osg::NodePtr& node) {
        if (node == osg::NullFC || node->getTravMask() != 0xFFFFFFFF || isOnOneSide(node)) return;
        const osg::GeometryPtr geometry = osg::GeometryPtr::dcast(node->getCore());
        if (geometry != osg::NullFC) cut(node, geometry);
        for (measurement::ChildEnumerator children(node); children.hasNext();) visit(children.next());
    }

    bool isOnOneSide(const osg::NodePtr& node) const {
        osg::DynamicVolume volume;
        node->getWorldVolume(volume);
        osg::Pnt3f min, max, centre;
        volume.getBounds(min, max);
        float reach = 0.0f;
        for (int axis = 0; axis < 3; ++axis) {
            centre[axis] = (min[axis] + max[axis]) * 0.5f;
            reach += std::fabs((max[axis] - min[axis]) * 0.5f * plane[axis]);
        }
        const float distance = signedDistance(plane, centre);
        return distance + reach < 0.0f || distance - reach > 0.0f;
    }

    void cut(const osg::NodePtr& node, const osg::GeometryPtr& geometry) {
        const osg::GeoPLengthsPtr lengths = geometry->getLengths();
        const osg::GeoPTypesPtr types = geometry->getTypes();
        if (geometry->getIndices() == osg::NullFC || lengths == osg::NullFC || lengths->getSize() != 1 ||
            types == osg::NullFC || types->getSize() == 0 || types->getValue(0) != GL_TRIANGLES)
            cutAll<measurement::GenericTriangleIterator>(node);
        else if (osg::GeoIndicesUI16Ptr::dcast(geometry->getIndices()) != osg::NullFC)
            cutAll<measurement::TriListI16TriangleIterator>(node);
        else
            cutAll<measurement::TriListI32TriangleIterator>(node);
    }

    template <class Iterator> void cutAll(const osg::NodePtr& node) {
        const osg::Matrix toWorld = node->getToWorld();
        osg::Vec4f local(0, 0, 0, 0);
        for (int column = 0; column < 4; ++column)
            local[column] =
                toWorld[column][0] * plane[0] + toWorld[column][1] * plane[1] + toWorld[column][2] * plane[2];
        local[3] = plane[3] + local[3];
        for (Iterator triangle(node); !triangle.isAtEnd(); ++triangle) {
            Corner corners[3];
            int below = 0;
            for (osg::UInt32 i = 0; i < 3; ++i) {
                corners[i] = {triangle.getPosition(i), signedDistance(local, triangle.getPosition(i))};
                below += corners[i].distance < 0.0f;
            }
            if (below == 1 || below == 2) cutTriangle(corners, toWorld);
        }
    }

    void cutTriangle(const Corner (&corners)[3], const osg::Matrix& toWorld) {
        std::vector<osg::Pnt3f> points;
        const auto parameter = [](const Corner& a, const Corner& b) { return a.distance / (a.distance - b.distance); };
        const auto add = [&](const Corner& a, const Corner& b) {
            const float t = parameter(a, b);
            osg::Pnt3f point;
            for (int axis = 0; axis < 3; ++axis)
                point[axis] = a.position[axis] + t * (b.position[axis] - a.position[axis]);
            toWorld.multMatrixPnt(point);
            points.push_back(point);
        };
        const auto isOnEdge = [&](int a, int b) {
            const float t = parameter(corners[a], corners[b]);
            return 0.0f <= t && t <= 1.0f;
        };
        for (const int to : {1, 2})
            if (isOnEdge(0, to)) add(corners[0], corners[to]);
        if (points.empty()) return;
        if (points.size() == 1) {
            add(corners[1], corners[2]);
            segments.push_back({points[0], points[1]});
            return;
        }
        segments.push_back({points[0], points[1]});
        if (!isOnEdge(1, 2)) return;
        add(corners[1], corners[2]);
        bool isRepeated = true;
        for (int axis = 0; axis < 3; ++axis) isRepeated &= std::fabs(points[2][axis] - points[1][axis]) <= 1e-6f;
        if (!isRepeated) segments.push_back({points[1], points[2]});
    }

    osg::Vec4f plane;
};

} // namespace tesk::test
