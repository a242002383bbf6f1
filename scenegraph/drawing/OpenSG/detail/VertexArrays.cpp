#include <OpenSG/detail/VertexArrays.h>

#include <OpenSG/OSGPrimitiveIterator.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <initializer_list>

namespace osg {

namespace {

size_t getComponentSize(GLenum format) {
    switch (format) {
    case GL_DOUBLE:
        return sizeof(Real64);
    case GL_FLOAT:
        return sizeof(Real32);
    default:
        return sizeof(UInt8);
    }
}

/// Whether the indices serve each property on their own, so that vertices have to be put together.
bool hasSeveralIndices(const Geometry& geometry) { return geometry.getIndexMapping().getSize() > 1; }

/// Appends the arrays of a geometry's properties, each with an element for every vertex.
class ArrayWriter {
public:
    ArrayWriter(const GeometryPtr& owner, std::vector<UInt8>& target)
        : vertices(owner), assembles(hasSeveralIndices(*owner)),
          vertexCount(assembles ? vertices.size() : owner->getPositions()->getSize()), bytes(target) {}

    template <class PropertyPtr> VertexArray write(const PropertyPtr& property, UInt16 mapping) {
        VertexArray array;
        if (property == NullFC || (vertices.size() > 0 && vertices.getElementIndex(0, mapping) < 0)) return array;
        array.format = property->getFormat();
        array.dimension = property->getDimension();
        // Aligned for doubles.
        array.offset = (bytes.size() + 7) / 8 * 8;
        const size_t elementSize = array.dimension * getComponentSize(array.format);
        bytes.resize(array.offset + vertexCount * elementSize);
        const UInt8* const source = property->getData();
        UInt8* const target = bytes.data() + array.offset;
        if (assembles)
            assemble(target, source, property->getSize(), elementSize, mapping);
        else if (source)
            std::memcpy(target, source, std::min<size_t>(vertexCount, property->getSize()) * elementSize);
        return array;
    }

private:
    void assemble(UInt8* target, const UInt8* source, UInt32 count, size_t elementSize, UInt16 mapping) const {
        for (UInt32 vertex = 0; vertex < vertexCount; ++vertex, target += elementSize) {
            const auto element = static_cast<UInt32>(vertices.getElementIndex(vertex, mapping));
            if (element < count) std::memcpy(target, source + element * elementSize, elementSize);
        }
    }

    GeometryVertices vertices;
    bool assembles;
    size_t vertexCount;
    std::vector<UInt8>& bytes;
};

template <class Component> bool isFinite(const UInt8* element, UInt32 dimension) {
    for (UInt32 index = 0; index < dimension; ++index) {
        Component component;
        std::memcpy(&component, element + index * sizeof(Component), sizeof(Component));
        // OpenGL computes in single precision.
        if (!std::isfinite(static_cast<Real32>(component))) return false;
    }
    return true;
}

/// Appends the indices of primitives, cut up into the elements that a range may have many of.
class IndexWriter {
public:
    IndexWriter(const GeometryPtr& owner, std::vector<UInt32>& target, std::vector<DrawRange>& targetRanges)
        : vertices(owner), assembles(hasSeveralIndices(*owner)), indices(target), ranges(targetRanges) {
        const GeoPositionsPtr& positions = owner->getPositions();
        drawable.resize(positions->getSize());
        const UInt8* element = positions->getData();
        const UInt32 dimension = positions->getDimension();
        const bool isDouble = positions->getFormat() == GL_DOUBLE;
        const size_t elementSize = dimension * getComponentSize(positions->getFormat());
        for (size_t index = 0; index < drawable.size(); ++index, element += elementSize)
            drawable[index] = isDouble ? isFinite<Real64>(element, dimension) : isFinite<Real32>(element, dimension);
    }

    void write(UInt8 type, UInt32 first, UInt32 length) {
        switch (type) {
        case GL_POINTS:
            return writeList(GL_POINTS, 1, first, length);
        case GL_LINES:
            return writeList(GL_LINES, 2, first, length);
        case GL_TRIANGLES:
            return writeList(GL_TRIANGLES, 3, first, length);
        case GL_QUADS:
            return writeList(GL_QUADS, 4, first, length);
        case GL_LINE_STRIP:
        case GL_LINE_LOOP:
            return writeLineStrip(type == GL_LINE_LOOP, first, length);
        case GL_TRIANGLE_STRIP:
            return writeTriangleStrip(first, length);
        case GL_TRIANGLE_FAN:
            return writeTriangleFan(first, length);
        case GL_QUAD_STRIP:
            return writeQuadStrip(first, length);
        case GL_POLYGON:
            return writePolygon(first, length);
        default:
            return;
        }
    }

private:
    void writeList(GLenum type, UInt32 size, UInt32 first, UInt32 length) {
        for (UInt32 vertex = first; vertex + size <= first + length; vertex += size) {
            beginElement();
            for (UInt32 corner = 0; corner < size; ++corner) addVertex(vertex + corner);
            endElement(type);
        }
    }

    void writeElement(GLenum type, std::initializer_list<UInt32> corners) {
        beginElement();
        for (const UInt32 vertex : corners) addVertex(vertex);
        endElement(type);
    }

    void writeLineStrip(bool closed, UInt32 first, UInt32 length) {
        for (UInt32 i = 1; i < length; ++i) writeElement(GL_LINES, {first + i - 1, first + i});
        if (closed && length > 1) writeElement(GL_LINES, {first + length - 1, first});
    }

    void writeTriangleStrip(UInt32 first, UInt32 length) {
        for (UInt32 i = 2; i < length; ++i) {
            const UInt32 a = first + i - 2, b = first + i - 1, c = first + i;
            if (i % 2 == 0)
                writeElement(GL_TRIANGLES, {a, b, c});
            else
                writeElement(GL_TRIANGLES, {b, a, c});
        }
    }

    void writeTriangleFan(UInt32 first, UInt32 length) {
        for (UInt32 i = 2; i < length; ++i) writeElement(GL_TRIANGLES, {first, first + i - 1, first + i});
    }

    void writeQuadStrip(UInt32 first, UInt32 length) {
        for (UInt32 i = 3; i < length; i += 2)
            writeElement(GL_QUADS, {first + i - 1, first + i - 3, first + i - 2, first + i});
    }

    void writePolygon(UInt32 first, UInt32 length) {
        if (length < 3) return;
        beginElement();
        for (UInt32 i = 0; i < length; ++i) addVertex(first + i);
        endElement(length == 3 ? GL_TRIANGLES : length == 4 ? GL_QUADS : GL_POLYGON);
    }

    void beginElement() {
        elementBegin = indices.size();
        isElementDrawable = true;
    }

    void addVertex(UInt32 vertex) {
        const UInt32 position = vertices.getPositionIndex(vertex);
        if (position >= drawable.size() || !drawable[position]) isElementDrawable = false;
        indices.push_back(assembles ? vertex : position);
    }

    void endElement(GLenum type) {
        if (!isElementDrawable) return indices.resize(elementBegin);
        if (ranges.empty() || ranges.back().type != type || type == GL_POLYGON)
            ranges.push_back({type, static_cast<UInt32>(elementBegin), 0});
        ranges.back().indexCount = static_cast<UInt32>(indices.size()) - ranges.back().firstIndex;
    }

    GeometryVertices vertices;
    bool assembles;
    std::vector<UInt32>& indices;
    std::vector<DrawRange>& ranges;
    /// Of each position, whether it is finite.
    std::vector<bool> drawable;
    size_t elementBegin = 0;
    bool isElementDrawable = true;
};

} // namespace

void VertexArrays::build(const GeometryPtr& geometry) {
    layout = VertexLayout();
    bytes.clear();
    indices.clear();
    const GeoPositionsPtr& positions = geometry->getPositions();
    if (positions == NullFC || positions->getSize() == 0) return;
    buildIndices(geometry);
    if (!indices.empty()) buildArrays(geometry);
    // Without a slot for positions in the index mapping there is nothing to draw by.
    if (!layout.positions.exists()) layout.ranges.clear();
}

void VertexArrays::buildArrays(const GeometryPtr& geometry) {
    ArrayWriter writer(geometry, bytes);
    layout.positions = writer.write(geometry->getPositions(), Geometry::MapPosition);
    layout.normals = writer.write(geometry->getNormals(), Geometry::MapNormal);
    layout.colors = writer.write(geometry->getColors(), Geometry::MapColor);
    layout.texCoords = writer.write(geometry->getTexCoords(), Geometry::MapTexCoords);
}

void VertexArrays::buildIndices(const GeometryPtr& geometry) {
    IndexWriter writer(geometry, indices, layout.ranges);
    for (PrimitiveIterator primitive = geometry->beginPrimitives(); !primitive.isAtEnd(); ++primitive)
        writer.write(primitive.getType(), primitive.getVertex(0), primitive.getLength());
}

} // namespace osg
