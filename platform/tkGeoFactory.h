#pragma once

#include <platform/Export.h>

#include <OpenSG/OSGNode.h>

/// Makes simple shapes of lines: nodes with a Geometry core in the shared unlit default material.
///
/// Each shape has positions (`GeoPositions3f`), types, lengths and indices (`GeoIndicesUI32`), nothing else. The caller
/// owns the node, which has no references yet; null before osgInit().
class TESK_PLATFORM_EXPORT tkGeoFactory {
public:
    /// One line from the origin along the x axis to (length, 0, 0).
    static osg::NodePtr makeLine(float length);

    /// A ring in the XY plane around the origin: a torus that has shrunk to its centre line.
    ///
    /// `segments` pieces join as many points, the first of them at (radius, 0, 0), counter-clockwise seen from +z.
    /// `filled` adds the disc inside, one GL_POLYGON, to the outline, one GL_LINE_LOOP. Fewer than three segments count
    /// as three, more than 65536 as 65536.
    static osg::NodePtr makeLineTorus(float radius, int segments, bool filled);
};
