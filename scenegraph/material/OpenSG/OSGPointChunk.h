#pragma once

#include <OpenSG/OSGStateChunk.h>

namespace osg {

class PointChunk;
typedef FCPtr<StateChunkPtr, PointChunk> PointChunkPtr;
typedef RefPtr<PointChunkPtr> PointChunkRefPtr;

/// How points are drawn.
class OSG_SYSTEMLIB_DLLMAPPING PointChunk : public StateChunk {
    OSG_CONTAINER(PointChunk, StateChunk)

public:
    /// Fields of points whose size depends on their distance, of no use here, come last.
    enum : UInt32 { SizeFieldId = Inherited::NextFieldId, SmoothFieldId, NextFieldId = SmoothFieldId + 9 };
    /// In pixels.
    OSG_FIELD(Real32, Size, size, 1.0f);
    OSG_FIELD(bool, Smooth, smooth, false);

    static UInt32 getStaticClassId() { return getClassTypeId(); }

protected:
    PointChunk() = default;
};

} // namespace osg
