#pragma once

#include <OpenSG/OSGStateChunk.h>

namespace osg {

class PolygonChunk;
typedef FCPtr<StateChunkPtr, PolygonChunk> PolygonChunkPtr;
typedef RefPtr<PolygonChunkPtr> PolygonChunkRefPtr;

/// How faces are drawn.
class OSG_SYSTEMLIB_DLLMAPPING PolygonChunk : public StateChunk {
    OSG_CONTAINER(PolygonChunk, StateChunk)

public:
    /// Further fields, of no use here, come before and after.
    enum : UInt32 { SmoothFieldId = Inherited::NextFieldId + 4, NextFieldId = SmoothFieldId + 7 };
    OSG_FIELD(bool, Smooth, smooth, false);

    static UInt32 getStaticClassId() { return getClassTypeId(); }

protected:
    PolygonChunk() = default;
};

} // namespace osg
