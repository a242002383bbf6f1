#pragma once

#include <OpenSG/OSGGeometry.h>

#include <measurement/scene/detail/NodeGeometry.h>

namespace tesk::measurement::detail {

/// The positions of a geometry as they lie in memory. Empty without a geometry and for positions that are not
/// osg::GeoPositions3f.
struct PositionArray {
    explicit PositionArray(const osg::GeometryPtr& geometry) {
        if (geometry == osg::NullFC) return;
        const osg::GeoPositions3fPtr positions = osg::GeoPositions3fPtr::dcast(geometry->getPositions());
        if (positions == osg::NullFC || positions->getSize() == 0) return;
        points = &positions->getField()[0];
        count = static_cast<osg::UInt32>(positions->getSize());
    }

    const osg::Pnt3f* points = nullptr;
    osg::UInt32 count = 0;
};

} // namespace tesk::measurement::detail
