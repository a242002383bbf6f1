#include <measurement/section/GenericTriangleIterator.h>

#include <measurement/section/detail/PositionArray.h>

namespace tesk::measurement {

GenericTriangleIterator::GenericTriangleIterator(const osg::NodePtr& node) {
    const osg::GeometryPtr geometry = detail::getGeometry(node);
    const detail::PositionArray array(geometry);
    if (array.count == 0) return;
    positions = array.points;
    positionCount = array.count;
    current = geometry->beginTriangles();
    end = geometry->endTriangles();
    passOverUnreadable();
}

} // namespace tesk::measurement
