#pragma once

#include <measurement/section/TriListTriangleIterator.h>

namespace tesk::measurement {

/// Walks over an indexed triangle list with 32-bit indices, osg::GeoIndicesUI32.
class TriListI32TriangleIterator : public TriListTriangleIterator<osg::UInt32, osg::GeoIndicesUI32Ptr> {
public:
    using TriListTriangleIterator::TriListTriangleIterator;
};

} // namespace tesk::measurement
