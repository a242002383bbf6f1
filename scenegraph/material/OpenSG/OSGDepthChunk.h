#pragma once

#include <OpenSG/OSGStateChunk.h>

namespace osg {

class DepthChunk;
typedef FCPtr<StateChunkPtr, DepthChunk> DepthChunkPtr;
typedef RefPtr<DepthChunkPtr> DepthChunkRefPtr;

/// How depth hides, and what is hidden.
class OSG_SYSTEMLIB_DLLMAPPING DepthChunk : public StateChunk {
    OSG_CONTAINER(DepthChunk, StateChunk)

public:
    /// Three further fields, of no use here, come between.
    enum : UInt32 { EnableFieldId = Inherited::NextFieldId, ReadOnlyFieldId = EnableFieldId + 4, NextFieldId };
    /// Whether depth is tested.
    OSG_FIELD(bool, Enable, enable, true);
    /// Whether depth stays unwritten.
    OSG_FIELD(bool, ReadOnly, readOnly, false);

    static UInt32 getStaticClassId() { return getClassTypeId(); }

protected:
    DepthChunk() = default;
};

} // namespace osg
