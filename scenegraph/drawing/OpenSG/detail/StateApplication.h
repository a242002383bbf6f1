#pragma once

#include <OpenSG/OSGMaterial.h>
#include <OpenSG/detail/GeometryBuffers.h>
#include <OpenSG/detail/Textures.h>

namespace osg {

class BlendChunk;
class DepthChunk;
class LineChunk;
class MaterialChunk;
class PointChunk;
class PolygonChunk;

/// Brings OpenGL into the state that materials describe, from one material to the next only where they differ.
class StateApplication {
public:
    /// From whatever state to that of no material; to be called before each picture.
    void begin();
    /// Back to the state of no material.
    void end();

    void apply(Material& material);
    /// Whether depth is written, until the next material with a DepthChunk, or the next one after such a material.
    void setDepthWriting(bool write);
    /// Draws with the material applied last; what the geometry does not say itself comes from there.
    void draw(const BufferedGeometry& geometry);

private:
    /// A material's chunks, each null for what a state without it has.
    struct Chunks {
        const MaterialChunk* material = nullptr;
        const LineChunk* line = nullptr;
        const PointChunk* point = nullptr;
        const BlendChunk* blend = nullptr;
        const DepthChunk* depth = nullptr;
        const PolygonChunk* polygon = nullptr;
        const TextureChunk* texture = nullptr;
    };

    static Chunks getChunks(const State& state);
    void change(const Chunks& next);
    void applyTexture(const TextureChunk* chunk);

    Chunks current;
    const State* currentState = nullptr;
    Textures textures;
};

} // namespace osg
