#include <measurement/scene/detail/GeometryPrimitives.h>

namespace tesk::measurement::detail {

GeometryPositions::GeometryPositions(const osg::GeometryPtr& geometry) : positions(geometry->getPositions()) {
    if (positions == osg::NullFC) return;
    count = static_cast<osg::UInt32>(positions->getSize());
    const osg::GeoPositions3fPtr plain = osg::GeoPositions3fPtr::dcast(positions);
    if (plain != osg::NullFC && count > 0) points = &plain->getField()[0];
}

} // namespace tesk::measurement::detail
