#pragma once

#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGNode.h>

#include <measurement/Export.h>

namespace tesk::measurement {

/// Walks over the triangles of an indexed triangle list, straight over the arrays: what TriListI16TriangleIterator and
/// TriListI32TriangleIterator have in common.
///
/// For a node whose core is an osg::Geometry with osg::GeoPositions3f, indices of the named type and one primitive of
/// type triangles. Positions are in local coordinates. Types, index mapping and further primitives are not looked at:
/// where a vertex has two indices, normals' indices are taken for positions'. Use GenericTriangleIterator there.
///
/// Three indices make a triangle as long as its first lies within the primitive, so a length that is no multiple of
/// three takes the last triangle's rest from what follows in the index property. Nothing outside the properties is
/// read: the walk ends with the last three indices that are there, and a triangle with an index beyond the positions is
/// passed over. Other cores, positions and index types, missing indices or lengths, and a null node give no triangles.
///
/// The geometry must not change during the walk; no references are counted.
///
/// \code
/// for (TriListI32TriangleIterator it(node); !it.isAtEnd(); ++it)
///     use(it.getPosition(0), it.getPosition(1), it.getPosition(2));
/// \endcode
template <class Index, class IndicesPtr> class TriListTriangleIterator {
public:
    /// At the first triangle.
    explicit TriListTriangleIterator(const osg::NodePtr& node);

    bool isAtEnd() const { return cursor >= end; }
    void operator++() {
        cursor += 3;
        passOverUnreadable();
    }

    /// Of corner 0, 1 or 2. Call these only before the end.
    osg::UInt32 getPositionIndex(osg::UInt32 corner) const { return cursor[corner]; }
    const osg::Pnt3f& getPosition(osg::UInt32 corner) const { return positions[cursor[corner]]; }

private:
    bool isReadable() const {
        return cursor[0] < positionCount && cursor[1] < positionCount && cursor[2] < positionCount;
    }
    void passOverUnreadable() {
        while (!isAtEnd() && !isReadable()) cursor += 3;
    }

    const osg::Pnt3f* positions = nullptr;
    osg::UInt32 positionCount = 0;
    const Index* cursor = nullptr;
    const Index* end = nullptr;
};

extern template class TESK_MEASUREMENT_EXPORT TriListTriangleIterator<osg::UInt16, osg::GeoIndicesUI16Ptr>;
extern template class TESK_MEASUREMENT_EXPORT TriListTriangleIterator<osg::UInt32, osg::GeoIndicesUI32Ptr>;

} // namespace tesk::measurement
