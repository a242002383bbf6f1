#pragma once

#include <OpenSG/OSGVector.h>

namespace tesk::measurement {

/// The points origin + s * direction for any number s. The direction may have any length.
struct Line {
    osg::Pnt3f origin;
    osg::Vec3f direction;
};

/// The points start + t * (end - start), t from 0 to 1.
struct Segment {
    osg::Pnt3f start;
    osg::Pnt3f end;
};

/// The points p0 + u * (p1 - p0) + w * (p2 - p0), u and w not negative, u + w at most 1.
struct Triangle {
    osg::Pnt3f p0;
    osg::Pnt3f p1;
    osg::Pnt3f p2;
};

} // namespace tesk::measurement
