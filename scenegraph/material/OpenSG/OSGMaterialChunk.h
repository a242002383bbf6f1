#pragma once

#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGGL.h>
#include <OpenSG/OSGStateChunk.h>

namespace osg {

class MaterialChunk;
typedef FCPtr<StateChunkPtr, MaterialChunk> MaterialChunkPtr;
typedef RefPtr<MaterialChunkPtr> MaterialChunkRefPtr;

/// Colours and how light acts on them. Without lighting the diffuse colour shows as it is.
class OSG_SYSTEMLIB_DLLMAPPING MaterialChunk : public StateChunk {
    OSG_CONTAINER(MaterialChunk, StateChunk)

public:
    /// The same for back faces, of no use here, comes last.
    enum : UInt32 {
        DiffuseFieldId = Inherited::NextFieldId,
        AmbientFieldId,
        SpecularFieldId,
        EmissionFieldId,
        ShininessFieldId,
        LitFieldId,
        ColorMaterialFieldId,
        NextFieldId = ColorMaterialFieldId + 8
    };
    OSG_FIELD(Color4f, Diffuse, diffuse, Color4f(1.0f, 1.0f, 1.0f, 1.0f));
    OSG_FIELD(Color4f, Ambient, ambient, Color4f(0.2f, 0.2f, 0.2f, 1.0f));
    OSG_FIELD(Color4f, Specular, specular, Color4f(0.5f, 0.5f, 0.5f, 1.0f));
    OSG_FIELD(Color4f, Emission, emission, Color4f(0.0f, 0.0f, 0.0f, 1.0f));
    OSG_FIELD(Real32, Shininess, shininess, 10.0f);
    OSG_FIELD(bool, Lit, lit, true);
    /// Which of the colours those of vertices replace.
    OSG_FIELD(GLenum, ColorMaterial, colorMaterial, GL_DIFFUSE);

    static UInt32 getStaticClassId() { return getClassTypeId(); }
    /// Whether the diffuse alpha is below 1.
    bool isTransparent() const override { return 1.0f - diffuse[3] > Eps; }

protected:
    MaterialChunk() = default;
};

} // namespace osg
