#include <measurement/section/GenericTriangleIterator.h>

#include <measurement/scene/detail/GeometryRepair.h>
#include <measurement/section/detail/PositionArray.h>

namespace tesk::measurement {

GenericTriangleIterator::GenericTriangleIterator(const osg::NodePtr& node) {
    const osg::GeometryPtr geometry = detail::getGeometry(node);
    const detail::PositionArray array(geometry);
    if (array.count == 0) return;
    positions = array.points;
    positionCount = array.count;
    repaired = detail::createWalkable(geometry);
    const osg::GeometryPtr walkable = repaired ? repaired.get() : geometry;
    current = walkable->beginTriangles();
    end = walkable->endTriangles();
    passOverUnreadable();
}

} // namespace tesk::measurement
