#pragma once

#include <OpenSG/OSGGeometry.h>

#include <vector>

namespace osg {

/// Where the elements of one property lie among the bytes of all vertices, one after the other.
struct VertexArray {
    /// OpenGL's name for a component's type; GL_NONE when the geometry has no such property.
    GLenum format = GL_NONE;
    UInt32 dimension = 0;
    size_t offset = 0;

    bool exists() const { return format != GL_NONE; }
};

/// Points, lines, triangles, quads or one polygon: what one call to OpenGL draws.
struct DrawRange {
    GLenum type;
    UInt32 firstIndex;
    UInt32 indexCount;
};

/// How a geometry's arrays are laid out.
struct VertexLayout {
    VertexArray positions, normals, colors, texCoords;
    /// In the order of the primitives.
    std::vector<DrawRange> ranges;
};

/// A geometry's content in the form that OpenGL draws: one index for all properties, and only what is safe to draw.
///
/// Strips and fans become triangles or quads, loops become lines, with the same last vertices. A point, line, triangle,
/// quad or polygon is left out when a position of it is missing or not finite. An element that another property lacks
/// is 0.
class VertexArrays {
public:
    /// Replaces the content; memory is kept.
    void build(const GeometryPtr& geometry);

    const VertexLayout& getLayout() const { return layout; }
    const std::vector<UInt8>& getBytes() const { return bytes; }
    const std::vector<UInt32>& getIndices() const { return indices; }

private:
    void buildArrays(const GeometryPtr& geometry);
    void buildIndices(const GeometryPtr& geometry);

    VertexLayout layout;
    std::vector<UInt8> bytes;
    std::vector<UInt32> indices;
};

} // namespace osg
