#include <measurement/scene/PointObjectDistanceCalculator.h>

#include <measurement/geometry/DistanceSegmentPoint.h>
#include <measurement/geometry/DistanceTrianglePoint.h>
#include <measurement/geometry/Validity.h>
#include <measurement/geometry/detail/Constants.h>
#include <measurement/scene/detail/GeometryPrimitives.h>
#include <measurement/scene/detail/SubtreeWalk.h>

namespace tesk::measurement {

void PointObjectDistanceCalculator::calc(const osg::Pnt3f& queryPoint, const osg::NodePtr& object) {
    // Copies first: the arguments may be this calculator's own results.
    const osg::NodePtr root = object;
    point = queryPoint;
    node = osg::NullFC;
    squaredDistance = detail::largestFloat;
    findPointObjectDistance(root);
}

void PointObjectDistanceCalculator::findPointObjectDistance(const osg::NodePtr& object) {
    detail::visitSubtree(object, [this](const osg::NodePtr& visited) { testGeometry(visited); });
}

void PointObjectDistanceCalculator::testGeometry(const osg::NodePtr& candidate) {
    const osg::GeometryPtr geometry = osg::GeometryPtr::dcast(candidate->getCore());
    if (geometry == osg::NullFC) return;
    const osg::Matrix toWorld = candidate->getToWorld();
    osg::Matrix toLocal = toWorld;
    toLocal.invert();
    osg::Pnt3f localPoint;
    toLocal.multMatrixPnt(point, localPoint);

    const auto keep = [&](const auto& query) {
        squaredDistance = query.getSquaredDistance();
        node = candidate;
        toWorld.multMatrixPnt(query.getClosestPoint(), closestPoint);
    };
    detail::forEachTriangle(geometry, [&](const Triangle& triangle) {
        const DistanceTrianglePoint query(triangle, osg::Vec3f(localPoint));
        // A degenerate triangle may pair the distance 0 with a point that is not a number.
        if (query.getSquaredDistance() < squaredDistance && isValid(query.getClosestPoint())) keep(query);
    });
    detail::forEachLine(geometry, [&](const Segment& segment) {
        const DistanceSegmentPoint query(segment, localPoint);
        if (query.getSquaredDistance() < squaredDistance) keep(query);
    });
}

} // namespace tesk::measurement
