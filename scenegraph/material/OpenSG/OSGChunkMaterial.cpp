#include <OpenSG/OSGChunkMaterial.h>

#include <algorithm>

namespace osg {

OSG_CONTAINER_DEF(ChunkMaterial)

ChunkMaterial::~ChunkMaterial() { clearChunks(); }

bool ChunkMaterial::addChunk(const StateChunkPtr& chunk) {
    if (chunk == NullFC) return true;
    chunks.push_back(chunk);
    addRefCP(chunk);
    return true;
}

bool ChunkMaterial::subChunk(const StateChunkPtr& chunk) {
    const auto found = chunks.find(chunk);
    if (found == chunks.end()) return true;
    const StateChunkPtr removed = *found;
    chunks.erase(found);
    subRefCP(removed);
    return false;
}

void ChunkMaterial::clearChunks() {
    for (const StateChunkPtr& chunk : chunks) subRefCP(chunk);
    chunks.clear();
}

Int32 ChunkMaterial::find(const StateChunkPtr& chunk) const {
    const auto found = chunks.find(chunk);
    return found == chunks.end() ? -1 : static_cast<Int32>(found - chunks.begin());
}

StateChunkPtr ChunkMaterial::find(const FieldContainerType& type) const {
    const auto found = std::find_if(chunks.begin(), chunks.end(),
                                    [&](const StateChunkPtr& chunk) { return chunk->getType() == type; });
    return found == chunks.end() ? StateChunkPtr() : *found;
}

bool ChunkMaterial::isTransparent() const {
    if (getTransparencyMode() == TransparencyForceTransparent) return true;
    if (getTransparencyMode() == TransparencyForceOpaque) return false;
    return std::any_of(chunks.begin(), chunks.end(), [](const StateChunkPtr& chunk) { return chunk->isTransparent(); });
}

void ChunkMaterial::rebuildState() {
    const StatePtr rebuilt = clearState();
    if (rebuilt == NullFC) return;
    addOwnChunks(rebuilt);
    for (const StateChunkPtr& chunk : chunks) rebuilt->addChunk(chunk);
}

} // namespace osg
