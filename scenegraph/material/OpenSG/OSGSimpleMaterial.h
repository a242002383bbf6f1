#pragma once

#include <OpenSG/OSGBlendChunk.h>
#include <OpenSG/OSGChunkMaterial.h>
#include <OpenSG/OSGMaterialChunk.h>

namespace osg {

class SimpleMaterial;
typedef FCPtr<ChunkMaterialPtr, SimpleMaterial> SimpleMaterialPtr;
typedef RefPtr<SimpleMaterialPtr> SimpleMaterialRefPtr;

/// A material given by a few colours.
///
/// The end of an edit writes them into two chunks of its own, one for colours and, when transparent, one for blending;
/// these are in the state but not among getChunks(), and added chunks of their classes replace them there.
class OSG_SYSTEMLIB_DLLMAPPING SimpleMaterial : public ChunkMaterial {
    OSG_CONTAINER(SimpleMaterial, ChunkMaterial)

public:
    enum : UInt32 {
        AmbientFieldId = Inherited::NextFieldId,
        DiffuseFieldId,
        SpecularFieldId,
        ShininessFieldId,
        EmissionFieldId,
        TransparencyFieldId,
        LitFieldId,
        ColorMaterialFieldId,
        NextFieldId
    };
    OSG_FIELD(Color3f, Ambient, ambient, Color3f());
    OSG_FIELD(Color3f, Diffuse, diffuse, Color3f());
    OSG_FIELD(Color3f, Specular, specular, Color3f());
    OSG_FIELD(Real32, Shininess, shininess, 1.0f);
    OSG_FIELD(Color3f, Emission, emission, Color3f());
    /// 0 is opaque, 1 invisible.
    OSG_FIELD(Real32, Transparency, transparency, 0.0f);
    OSG_FIELD(bool, Lit, lit, true);
    /// Which of the colours those of vertices replace.
    OSG_FIELD(GLenum, ColorMaterial, colorMaterial, GL_DIFFUSE);

    /// Whether its transparency or a chunk makes it so; the transparency mode decides only while transparency is 0.
    bool isTransparent() const override;

protected:
    SimpleMaterial();

    void addOwnChunks(const StatePtr& rebuilt) override;

private:
    MaterialChunkRefPtr materialChunk;
    BlendChunkRefPtr blendChunk;
};

} // namespace osg
