#pragma once

#include <measurement/geometry/DistanceSegmentPoint.h>
#include <measurement/geometry/DistanceTrianglePoint.h>
#include <measurement/geometry/Validity.h>
#include <measurement/scene/detail/GeometryPrimitives.h>
#include <measurement/scene/detail/SubtreeWalk.h>

#include <limits>

namespace tesk::test {

/// What PointObjectDistanceCalculator finds, by looking at every primitive in turn.
struct PlainPointObject {
    osg::Pnt3f point{0.0f, 0.0f, 0.0f};
    osg::NodePtr node;
    float squaredDistance = 0.0f;

    void calc(const osg::Pnt3f& queryPoint, const osg::NodePtr& object) {
        using namespace measurement;
        node = osg::NullFC;
        squaredDistance = std::numeric_limits<float>::max();
        measurement::detail::visitSubtree(object, [&](const osg::NodePtr& candidate) {
            const osg::GeometryPtr geometry = osg::GeometryPtr::dcast(candidate->getCore());
            if (geometry == osg::NullFC) return;
            const osg::Matrix toWorld = candidate->getToWorld();
            osg::Matrix toLocal = toWorld;
            toLocal.invert();
            osg::Pnt3f localPoint;
            toLocal.multMatrixPnt(queryPoint, localPoint);
            const auto keep = [&](const auto& query) {
                squaredDistance = query.getSquaredDistance();
                node = candidate;
                toWorld.multMatrixPnt(query.getClosestPoint(), point);
            };
            measurement::detail::forEachTriangle(geometry, [&](const Triangle& triangle) {
                const DistanceTrianglePoint query(triangle, osg::Vec3f(localPoint));
                if (query.getSquaredDistance() < squaredDistance && isValid(query.getClosestPoint())) keep(query);
            });
            measurement::detail::forEachLine(geometry, [&](const Segment& segment) {
                const DistanceSegmentPoint query(segment, localPoint);
                if (query.getSquaredDistance() < squaredDistance) keep(query);
            });
        });
    }
};

} // namespace tesk::test
