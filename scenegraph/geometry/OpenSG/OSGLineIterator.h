#pragma once

#include <OpenSG/OSGElementIterator.h>

namespace osg {

/// Walks over the line segments of a geometry, whatever primitives they come from.
///
/// Segments between equal indices are kept. Points, surfaces and unknown types have no lines.
class OSG_SYSTEMLIB_DLLMAPPING LineIterator : public ElementIterator<LineIterator, 2> {
public:
    /// At the end, without a geometry to ask for.
    LineIterator() = default;
    /// In front of the first line: both corners show vertex 0 until the iterator is moved.
    explicit LineIterator(const GeometryPtr& geometry) { setGeo(geometry); }
    explicit LineIterator(const NodePtr& node) { setGeo(node); }

private:
    friend class ElementIterator<LineIterator, 2>;

    bool findInPrimitive();
};

} // namespace osg
