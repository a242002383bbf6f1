#include <measurement/section/TriListTriangleIterator.h>

#include <measurement/section/detail/PositionArray.h>

#include <algorithm>

namespace tesk::measurement {

template <class Index, class IndicesPtr>
TriListTriangleIterator<Index, IndicesPtr>::TriListTriangleIterator(const osg::NodePtr& node) {
    const osg::GeometryPtr geometry = detail::getGeometry(node);
    const detail::PositionArray array(geometry);
    if (array.count == 0) return;
    positions = array.points;
    positionCount = array.count;

    const IndicesPtr indices = IndicesPtr::dcast(geometry->getIndices());
    const osg::GeoPLengthsPtr lengths = geometry->getLengths();
    if (indices == osg::NullFC || lengths == osg::NullFC || lengths->getSize() == 0) return;
    const auto indexCount = static_cast<osg::UInt32>(indices->getSize());
    const osg::UInt32 inWholeTriangles = indexCount - indexCount % 3;
    if (inWholeTriangles == 0) return;
    cursor = &indices->getField()[0];
    end = cursor + std::min(lengths->getValue(0), inWholeTriangles);
    passOverUnreadable();
}

template class TriListTriangleIterator<osg::UInt16, osg::GeoIndicesUI16Ptr>;
template class TriListTriangleIterator<osg::UInt32, osg::GeoIndicesUI32Ptr>;

} // namespace tesk::measurement
