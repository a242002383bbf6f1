#pragma once

#include <OpenSG/OSGGL.h>
#include <OpenSG/OSGStateChunk.h>

namespace osg {

class BlendChunk;
typedef FCPtr<StateChunkPtr, BlendChunk> BlendChunkPtr;
typedef RefPtr<BlendChunkPtr> BlendChunkRefPtr;

/// How colours are mixed with those behind.
class OSG_SYSTEMLIB_DLLMAPPING BlendChunk : public StateChunk {
    OSG_CONTAINER(BlendChunk, StateChunk)

public:
    /// Six further fields, of no use here, come last.
    enum : UInt32 { SrcFactorFieldId = Inherited::NextFieldId, DestFactorFieldId, NextFieldId = DestFactorFieldId + 7 };
    OSG_FIELD(GLenum, SrcFactor, srcFactor, GL_ONE);
    /// GL_ZERO: no blending.
    OSG_FIELD(GLenum, DestFactor, destFactor, GL_ZERO);

    static UInt32 getStaticClassId() { return getClassTypeId(); }
    bool isTransparent() const override { return destFactor != GL_ZERO; }

protected:
    BlendChunk() = default;
};

} // namespace osg
