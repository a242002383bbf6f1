#pragma once

#include <measurement/section/TriListTriangleIterator.h>

namespace tesk::measurement {

/// Walks over an indexed triangle list with 16-bit indices, osg::GeoIndicesUI16.
class TriListI16TriangleIterator : public TriListTriangleIterator<osg::UInt16, osg::GeoIndicesUI16Ptr> {
public:
    using TriListTriangleIterator::TriListTriangleIterator;
};

} // namespace tesk::measurement
