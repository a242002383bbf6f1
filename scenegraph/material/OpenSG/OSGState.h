#pragma once

#include <OpenSG/OSGStateChunk.h>

namespace osg {

class State;
typedef FCPtr<FieldContainerPtr, State> StatePtr;
typedef RefPtr<StatePtr> StateRefPtr;

/// What a material comes down to: at most one chunk of each class, each held by a reference.
class OSG_SYSTEMLIB_DLLMAPPING State : public FieldContainer {
    OSG_CONTAINER(State, FieldContainer)

public:
    enum : UInt32 { ChunksFieldId = Inherited::NextFieldId, NextFieldId };
    static constexpr BitVector ChunksFieldMask = fieldMask(ChunksFieldId);

    /// The chunk of that class, or null.
    StateChunkPtr getChunk(UInt32 classId) const;
    /// The chunks without gaps, in no useful order.
    const MFStateChunkPtr& getChunks() const { return chunks; }

    /// Takes the place of the chunk of the same class; null is ignored.
    void addChunk(const StateChunkPtr& chunk);
    void clearChunks();

protected:
    State() = default;
    ~State() override;

private:
    MFStateChunkPtr chunks;
};

} // namespace osg
