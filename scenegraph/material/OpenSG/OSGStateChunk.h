#pragma once

#include <OpenSG/OSGAttachment.h>
#include <OpenSG/OSGFieldAccess.h>
#include <OpenSG/OSGRefPtr.h>

namespace osg {

class StateChunk;
typedef FCPtr<AttachmentPtr, StateChunk> StateChunkPtr;
typedef RefPtr<StateChunkPtr> StateChunkRefPtr;
typedef MField<StateChunkPtr> MFStateChunkPtr;

/// One aspect of how things are drawn, such as lines or blending; data only. Materials share chunks freely, and an
/// edit of a chunk shows in all of them without further edits.
class OSG_SYSTEMLIB_DLLMAPPING StateChunk : public Attachment {
    OSG_ABSTRACT_CONTAINER(StateChunk, Attachment)

public:
    /// A further field, of no use here, comes first.
    enum : UInt32 { NextFieldId = Inherited::NextFieldId + 1 };

    /// The aspect's number: a state has at most one chunk of each. Concrete classes tell theirs by getStaticClassId().
    UInt32 getClassId() const { return getTypeId(); }

    /// Whether what is drawn with the chunk shows what lies behind.
    virtual bool isTransparent() const { return false; }

protected:
    StateChunk() = default;
};

} // namespace osg
