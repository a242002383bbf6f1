#include <measurement/scene/PointObjectDistanceCalculator.h>

#include <measurement/geometry/detail/Constants.h>
#include <measurement/scene/detail/GeometryArrays.h>
#include <measurement/scene/detail/NodeGeometry.h>
#include <measurement/scene/detail/PrimitiveRank.h>
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
    const osg::GeometryPtr geometry = detail::getGeometry(candidate);
    if (geometry == osg::NullFC) return;
    const osg::Matrix toWorld = candidate->getToWorld();
    osg::Matrix toLocal = toWorld;
    toLocal.invert();
    osg::Pnt3f localPoint;
    toLocal.multMatrixPnt(point, localPoint);

    const detail::GeometryArrays arrays(geometry);
    acceleration::NearestPrimitive nearest;
    // Earlier geometries have lower ranks than any primitive of this one, so that equal distances stay theirs.
    nearest.squaredDistance = squaredDistance;
    acceleration::scan(arrays.getTriangles(), localPoint, detail::rankOfTriangles(0), nearest);
    acceleration::scan(arrays.getSegments(), localPoint, detail::rankOfSegments(0), nearest);
    if (!nearest.isFound) return;
    squaredDistance = nearest.squaredDistance;
    node = candidate;
    toWorld.multMatrixPnt(nearest.point, closestPoint);
}

} // namespace tesk::measurement
