#pragma once

#include <OpenSG/OSGGeometryVertices.h>
#include <OpenSG/OSGNodePtr.h>

namespace osg {

/// Walks over the primitives of a geometry.
///
/// Corners are the primitive's vertices. A change of the geometry's indices, index mapping or number of positions ends
/// an iterator's use. Any content is safe to walk over: see getLength().
class OSG_SYSTEMLIB_DLLMAPPING PrimitiveIterator : public GeometryCorners<PrimitiveIterator> {
public:
    /// At the end, without a geometry to ask for.
    PrimitiveIterator() = default;
    /// At the first primitive.
    explicit PrimitiveIterator(const GeometryPtr& geometry) { setGeo(geometry); }
    explicit PrimitiveIterator(const NodePtr& node) { setGeo(node); }

    void setGeo(const GeometryPtr& geometry);
    /// The geometry that is the node's core; at the end without one.
    void setGeo(const NodePtr& node);
    void setToBegin();
    void setToEnd();
    void seek(UInt32 index);
    void operator++();

    bool isAtEnd() const { return atEnd; }
    UInt32 getIndex() const { return index; }
    UInt8 getType() const { return type; }
    /// Length of the primitive as far as there are vertices: a longer one is cut off at the geometry's last vertex,
    /// and one without an entry in the lengths is empty.
    UInt32 getLength() const { return length; }

    /// -1 when there is no such vertex.
    Int32 getPositionIndex(UInt32 which) const;

    /// All ends of one geometry are equal.
    bool operator==(const PrimitiveIterator& other) const {
        return getGeometry() == other.getGeometry() && index == other.index;
    }
    bool operator!=(const PrimitiveIterator& other) const { return !(*this == other); }
    bool operator<(const PrimitiveIterator& other) const {
        return getGeometry() < other.getGeometry() || (getGeometry() == other.getGeometry() && index < other.index);
    }

    const GeometryVertices& getVertices() const { return vertices; }
    /// Number of a corner's vertex, counted through the geometry.
    UInt32 getVertex(UInt32 which) const { return firstVertex + which; }

private:
    UInt32 countPrimitives() const;
    void readPrimitive();

    GeometryVertices vertices;
    UInt32 index = 0;
    UInt32 firstVertex = 0;
    UInt32 length = 0;
    UInt8 type = 0;
    bool atEnd = true;
};

} // namespace osg
