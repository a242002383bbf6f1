#pragma once

#include <OpenSG/OSGPrimitiveIterator.h>

#include <algorithm>

namespace osg {

/// Walks over the triangles, or the lines, that the primitives of a geometry consist of.
///
/// A primitive's last element may take corners from the vertices after the primitive's own. An element is left out and
/// not counted when one of its corners is a vertex, or has a position, that does not exist; so any content is safe to
/// walk over, in time proportional to the vertices and primitives that there are. Changes of the geometry end an
/// iterator's use as they do for a PrimitiveIterator.
///
/// Derived has bool findInPrimitive(): moves nextCorner on and accepts the next element of the primitive, or says that
/// there is none.
template <class Derived, UInt32 CornerCount> class ElementIterator : public GeometryCorners<Derived> {
public:
    void setGeo(const GeometryPtr& geometry) { rewind(PrimitiveIterator(geometry)); }
    /// The geometry that is the node's core; at the end without one.
    void setGeo(const NodePtr& node) { rewind(PrimitiveIterator(node)); }

    void setToBegin() {
        primitive.setToBegin();
        rewind(primitive);
        findElement();
    }
    void setToEnd() { primitive.setToEnd(); }
    /// To the element of this number, or to the end.
    void seek(UInt32 target) {
        setToBegin();
        while (!isAtEnd() && index < target) ++*this;
    }
    void operator++() {
        if (isAtEnd()) return;
        ++index;
        findElement();
    }

    bool isAtEnd() const { return primitive.isAtEnd(); }
    /// Number of the element.
    UInt32 getIndex() const { return index; }
    /// Length and type of the primitive that the element belongs to.
    UInt32 getLength() const { return primitive.getLength(); }
    UInt8 getType() const { return primitive.getType(); }
    Int32 getPositionIndex(UInt32 which) const { return static_cast<Int32>(positions[which]); }

    /// All ends are equal, whatever the geometry.
    friend bool operator==(const ElementIterator& a, const ElementIterator& b) {
        if (a.isAtEnd() || b.isAtEnd()) return a.isAtEnd() == b.isAtEnd();
        return a.getGeometry() == b.getGeometry() && a.index == b.index;
    }
    friend bool operator!=(const ElementIterator& a, const ElementIterator& b) { return !(a == b); }
    /// Ends come last.
    friend bool operator<(const ElementIterator& a, const ElementIterator& b) {
        if (a.isAtEnd() || b.isAtEnd()) return !a.isAtEnd();
        return a.getGeometry() < b.getGeometry() || (a.getGeometry() == b.getGeometry() && a.index < b.index);
    }

    const GeometryVertices& getVertices() const { return primitive.getVertices(); }
    /// Number of a corner's vertex, counted through the geometry.
    UInt32 getVertex(UInt32 which) const { return vertices[which]; }

protected:
    ElementIterator() = default;

    /// Makes the element of the primitive's corners with these numbers the current one if they all exist.
    bool accept(const UInt32 (&corners)[CornerCount]) {
        const GeometryVertices& all = primitive.getVertices();
        for (UInt32 i = 0; i < CornerCount; ++i) {
            vertices[i] = primitive.getVertex(corners[i]);
            if (vertices[i] >= all.size()) return false;
            positions[i] = all.getPositionIndex(vertices[i]);
            if (!all.isPosition(positions[i])) return false;
        }
        return true;
    }

    /// Number of the first corner of the element to look at next, and the primitive's length, or 0 when that is too
    /// short for any element.
    UInt32 nextCorner = 0;
    UInt32 usableLength = 0;
    UInt32 positions[CornerCount] = {};

private:
    /// In front of the first element: all corners show vertex 0.
    void rewind(const PrimitiveIterator& first) {
        primitive = first;
        index = 0;
        enterPrimitive();
        if (!accept({})) std::fill_n(positions, CornerCount, 0);
    }
    void enterPrimitive() {
        nextCorner = 0;
        usableLength = primitive.getLength() < CornerCount ? 0 : primitive.getLength();
    }
    void findElement() {
        while (!static_cast<Derived*>(this)->findInPrimitive()) {
            ++primitive;
            if (primitive.isAtEnd()) return;
            enterPrimitive();
        }
    }

    PrimitiveIterator primitive;
    UInt32 index = 0;
    UInt32 vertices[CornerCount] = {};
};

} // namespace osg
