#pragma once

#include <OpenSG/OSGElementIterator.h>

namespace osg {

/// Walks over the triangles of a geometry, whatever primitives they come from.
///
/// Strips leave out triangles with two equal position indices, but never their first. Points, lines and unknown types
/// have no triangles.
///
/// \code
/// for (TriangleIterator it = geometry->beginTriangles(); it != geometry->endTriangles(); ++it)
///     use(it.getPosition(0), it.getPosition(1), it.getPosition(2));
/// \endcode
class OSG_SYSTEMLIB_DLLMAPPING TriangleIterator : public ElementIterator<TriangleIterator, 3> {
public:
    /// At the end, without a geometry to ask for.
    TriangleIterator() = default;
    /// In front of the first triangle: all corners show vertex 0 until the iterator is moved.
    explicit TriangleIterator(const GeometryPtr& geometry) { setGeo(geometry); }
    explicit TriangleIterator(const NodePtr& node) { setGeo(node); }

private:
    friend class ElementIterator<TriangleIterator, 3>;

    bool findInPrimitive() {
        if (getType() == GL_TRIANGLES) return findSeparate();
        return findOther();
    }
    bool findSeparate() {
        while (nextCorner < usableLength) {
            const UInt32 first = nextCorner;
            nextCorner += 3;
            if (accept({first, first + 1, first + 2})) return true;
        }
        return false;
    }
    bool findOther();
    bool findInStrip();
    bool findInFan();
    bool findInQuads();
    bool isDegenerate() const {
        return positions[0] == positions[1] || positions[1] == positions[2] || positions[0] == positions[2];
    }
};

} // namespace osg
