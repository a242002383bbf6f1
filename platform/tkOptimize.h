#pragma once

#include <platform/Export.h>

#include <OpenSG/OSGNode.h>

/// Makes geometry smaller.
class TESK_PLATFORM_EXPORT tkOptimize {
public:
    /// Merges positions of a node's geometry that lie within a distance of each other, the distance itself included,
    /// so that primitives meeting there share an index.
    ///
    /// In the order of the positions, each joins the first one before it that was kept and lies within the distance,
    /// or else is kept itself. So the kept ones are farther apart than that, and of a chain of close positions some
    /// remain. Positions that are not finite are kept. What is kept moves together in its order, the indices follow;
    /// an index beyond the positions stays. Lengths and types stay, also of primitives whose vertices have become one.
    ///
    /// For an index property that serves positions of type osg::GeoPositions3f and nothing else. Any other node stays
    /// as it is: one that is null or has no geometry as its core, whose geometry has no indices, several indices for a
    /// vertex, or normals, colours or texture coordinates; so do all for a distance that is not positive or not a
    /// number. The geometry gets new properties if anything is merged: others that share the old ones keep them.
    ///
    /// The distance is in the geometry's local units. Time and memory are linear in positions and indices on average.
    static void unifyVerticesEpsilon(const osg::NodePtr& node, float epsilon);
};
