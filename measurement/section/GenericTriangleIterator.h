#pragma once

#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGTriangleIterator.h>

#include <measurement/Export.h>

namespace tesk::measurement {

/// Walks over the triangles of any geometry with osg::GeoPositions3f, in the order of osg::TriangleIterator.
///
/// Strips, fans and quads are taken apart; indices, index mapping and their absence are honoured. Positions are in
/// local coordinates. A triangle with an index beyond the positions is passed over. Other cores and positions and a
/// null node give no triangles.
///
/// The geometry must not change during the walk; no references to it are counted.
class TESK_MEASUREMENT_EXPORT GenericTriangleIterator {
public:
    /// At the first triangle.
    explicit GenericTriangleIterator(const osg::NodePtr& node);

    bool isAtEnd() const { return current == end; }
    void operator++() {
        ++current;
        passOverUnreadable();
    }

    /// Of corner 0, 1 or 2. Call these only before the end.
    osg::UInt32 getPositionIndex(osg::UInt32 corner) const {
        return static_cast<osg::UInt32>(current.getPositionIndex(corner));
    }
    const osg::Pnt3f& getPosition(osg::UInt32 corner) const { return positions[getPositionIndex(corner)]; }

private:
    bool isReadable() const {
        return getPositionIndex(0) < positionCount && getPositionIndex(1) < positionCount &&
               getPositionIndex(2) < positionCount;
    }
    void passOverUnreadable() {
        while (!isAtEnd() && !isReadable()) ++current;
    }

    /// What is walked over where the geometry's lengths are not fit for it.
    osg::RefPtr<osg::GeometryPtr> repaired;
    osg::TriangleIterator current;
    osg::TriangleIterator end;
    const osg::Pnt3f* positions = nullptr;
    osg::UInt32 positionCount = 0;
};

} // namespace tesk::measurement
