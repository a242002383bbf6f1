#pragma once

#include <OpenSG/OSGStateChunk.h>

namespace osg {

class LineChunk;
typedef FCPtr<StateChunkPtr, LineChunk> LineChunkPtr;
typedef RefPtr<LineChunkPtr> LineChunkRefPtr;

/// How lines are drawn.
class OSG_SYSTEMLIB_DLLMAPPING LineChunk : public StateChunk {
    OSG_CONTAINER(LineChunk, StateChunk)

public:
    /// Two fields of stippled lines, of no use here, come between.
    enum : UInt32 { WidthFieldId = Inherited::NextFieldId, SmoothFieldId = WidthFieldId + 3, NextFieldId };
    /// In pixels.
    OSG_FIELD(Real32, Width, width, 1.0f);
    OSG_FIELD(bool, Smooth, smooth, false);

    static UInt32 getStaticClassId() { return getClassTypeId(); }

protected:
    LineChunk() = default;
};

} // namespace osg
