#pragma once

#include <OpenSG/OSGTextureChunk.h>
#include <OpenSG/detail/ObjectCache.h>

namespace osg {

/// The images of texture chunks in texture objects of the current OpenGL context.
class Textures {
public:
    /// Binds the chunk's texture, refilled when the chunk's revision moved. False, and nothing is bound, when the chunk
    /// has no image or one that OpenGL cannot take.
    bool bind(const TextureChunk& chunk);
    void dropDead() { cache.dropDead(); }

private:
    struct Texture {
        Texture() = default;
        ~Texture();
        Texture(const Texture&) = delete;
        Texture& operator=(const Texture&) = delete;

        UInt32 name = 0;
        UInt32 revision = 0;
        bool isUsable = false;
    };

    ObjectCache<Texture> cache;
};

} // namespace osg
