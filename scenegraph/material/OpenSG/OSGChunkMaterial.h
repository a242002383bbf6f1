#pragma once

#include <OpenSG/OSGMaterial.h>

namespace osg {

class ChunkMaterial;
typedef FCPtr<MaterialPtr, ChunkMaterial> ChunkMaterialPtr;
typedef RefPtr<ChunkMaterialPtr> ChunkMaterialRefPtr;

/// A material made of chunks, each held by a reference. Of several chunks of one class the last counts.
class OSG_SYSTEMLIB_DLLMAPPING ChunkMaterial : public Material {
    OSG_CONTAINER(ChunkMaterial, Material)

public:
    /// A further field, of no use here, comes last.
    enum : UInt32 { ChunksFieldId = Inherited::NextFieldId, NextFieldId = ChunksFieldId + 2 };
    static constexpr BitVector ChunksFieldMask = fieldMask(ChunksFieldId);

    /// Appends the chunk, even one that is there already; null is ignored. Always true.
    bool addChunk(const StateChunkPtr& chunk);
    /// Removes the chunk where it comes first. Deliberate: false when done, true when there is no such chunk.
    bool subChunk(const StateChunkPtr& chunk);
    void clearChunks();

    /// Index of the chunk, or -1.
    Int32 find(const StateChunkPtr& chunk) const;
    /// The first chunk of exactly that type, or null.
    StateChunkPtr find(const FieldContainerType& type) const;

    MFStateChunkPtr& getChunks() { return chunks; }
    const MFStateChunkPtr& getChunks() const { return chunks; }
    StateChunkPtr& getChunks(UInt32 index) { return chunks[index]; }
    MFStateChunkPtr* getMFChunks() { return &chunks; }

    /// Whether a chunk is, unless the transparency mode decides.
    bool isTransparent() const override;
    void rebuildState() override;

protected:
    ChunkMaterial() = default;
    ~ChunkMaterial() override;

    /// Adds the chunks of a subclass's own, which give way to those of the material.
    virtual void addOwnChunks(const StatePtr&) {}

private:
    MFStateChunkPtr chunks;
};

} // namespace osg
