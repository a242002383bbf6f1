#include <OpenSG/detail/GeometryBuffers.h>

#include <OpenSG/detail/OpenGL.h>

namespace osg {

namespace {

const void* asPointer(size_t offset) { return reinterpret_cast<const void*>(offset); }

/// Switches an array on for the drawing of one geometry.
class EnabledArray {
public:
    EnabledArray(GLenum name, bool use) : array(name), isUsed(use) {
        if (isUsed) glEnableClientState(array);
    }
    ~EnabledArray() {
        if (isUsed) glDisableClientState(array);
    }
    EnabledArray(const EnabledArray&) = delete;
    EnabledArray& operator=(const EnabledArray&) = delete;

private:
    GLenum array;
    bool isUsed;
};

} // namespace

BufferedGeometry::~BufferedGeometry() {
    if (vertexBuffer.name) glDeleteBuffers(1, &vertexBuffer.name);
    if (indexBuffer.name) glDeleteBuffers(1, &indexBuffer.name);
}

void BufferedGeometry::Buffer::fill(GLenum target, const void* data, size_t newSize) {
    if (!name) glGenBuffers(1, &name);
    glBindBuffer(target, name);
    if (newSize == size)
        glBufferSubData(target, 0, static_cast<GLsizeiptr>(newSize), data);
    else
        glBufferData(target, static_cast<GLsizeiptr>(newSize), data, GL_DYNAMIC_DRAW);
    size = newSize;
}

void BufferedGeometry::update(const GeometryPtr& geometry, VertexArrays& scratch) {
    if (isFilled && revision == geometry->getRevision()) return;
    isFilled = true;
    revision = geometry->getRevision();
    scratch.build(geometry);
    layout = scratch.getLayout();
    if (isEmpty()) return;
    vertexBuffer.fill(GL_ARRAY_BUFFER, scratch.getBytes().data(), scratch.getBytes().size());
    indexBuffer.fill(GL_ELEMENT_ARRAY_BUFFER, scratch.getIndices().data(),
                     scratch.getIndices().size() * sizeof(UInt32));
}

void BufferedGeometry::draw() const {
    glBindBuffer(GL_ARRAY_BUFFER, vertexBuffer.name);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, indexBuffer.name);
    const EnabledArray positions(GL_VERTEX_ARRAY, true), normals(GL_NORMAL_ARRAY, hasNormals()),
        colors(GL_COLOR_ARRAY, hasColors()), texCoords(GL_TEXTURE_COORD_ARRAY, hasTexCoords());
    const auto components = [](const VertexArray& array) { return static_cast<GLint>(array.dimension); };
    glVertexPointer(components(layout.positions), layout.positions.format, 0, asPointer(layout.positions.offset));
    if (hasNormals()) glNormalPointer(layout.normals.format, 0, asPointer(layout.normals.offset));
    if (hasColors())
        glColorPointer(components(layout.colors), layout.colors.format, 0, asPointer(layout.colors.offset));
    if (hasTexCoords())
        glTexCoordPointer(components(layout.texCoords), layout.texCoords.format, 0, asPointer(layout.texCoords.offset));
    for (const DrawRange& range : layout.ranges)
        glDrawElements(range.type, static_cast<GLsizei>(range.indexCount), GL_UNSIGNED_INT,
                       asPointer(range.firstIndex * sizeof(UInt32)));
}

const BufferedGeometry& GeometryBuffers::get(const GeometryPtr& geometry) {
    BufferedGeometry& buffered = cache.find(geometry);
    buffered.update(geometry, scratch);
    return buffered;
}

} // namespace osg
