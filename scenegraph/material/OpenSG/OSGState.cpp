#include <OpenSG/OSGState.h>

#include <algorithm>

namespace osg {

OSG_ABSTRACT_CONTAINER_DEF(StateChunk)
OSG_CONTAINER_DEF(State)

State::~State() { clearChunks(); }

StateChunkPtr State::getChunk(UInt32 classId) const {
    for (const StateChunkPtr& chunk : chunks)
        if (chunk->getClassId() == classId) return chunk;
    return NullFC;
}

void State::addChunk(const StateChunkPtr& chunk) {
    if (chunk == NullFC) return;
    const auto old = std::find_if(chunks.begin(), chunks.end(), [&](const StateChunkPtr& present) {
        return present->getClassId() == chunk->getClassId();
    });
    if (old != chunks.end()) {
        setRefdCP(*old, chunk);
    } else {
        chunks.push_back(chunk);
        addRefCP(chunk);
    }
}

void State::clearChunks() {
    for (const StateChunkPtr& chunk : chunks) subRefCP(chunk);
    chunks.clear();
}

} // namespace osg
