#pragma once

#include <OpenSG/detail/ObjectCache.h>
#include <OpenSG/detail/VertexArrays.h>

namespace osg {

/// A geometry's vertices and indices in buffer objects of the current OpenGL context.
class BufferedGeometry {
public:
    BufferedGeometry() = default;
    ~BufferedGeometry();
    BufferedGeometry(const BufferedGeometry&) = delete;
    BufferedGeometry& operator=(const BufferedGeometry&) = delete;

    /// Fills the buffers when the geometry's revision moved, by way of arrays whose memory it reuses.
    void update(const GeometryPtr& geometry, VertexArrays& scratch);
    bool isEmpty() const { return layout.ranges.empty(); }
    bool hasColors() const { return layout.colors.exists(); }
    bool hasNormals() const { return layout.normals.exists(); }
    bool hasTexCoords() const { return layout.texCoords.exists(); }
    void draw() const;

private:
    /// A buffer object, made with its first content.
    struct Buffer {
        UInt32 name = 0;
        size_t size = 0;

        void fill(GLenum target, const void* data, size_t newSize);
    };

    VertexLayout layout;
    Buffer vertexBuffer;
    Buffer indexBuffer;
    UInt32 revision = 0;
    bool isFilled = false;
};

/// The buffers of all geometries that have been drawn and still exist.
class GeometryBuffers {
public:
    /// The geometry's buffers, up to date.
    const BufferedGeometry& get(const GeometryPtr& geometry);
    void dropDead() { cache.dropDead(); }

private:
    ObjectCache<BufferedGeometry> cache;
    VertexArrays scratch;
};

} // namespace osg
