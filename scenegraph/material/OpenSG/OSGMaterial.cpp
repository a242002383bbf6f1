#include <OpenSG/OSGMaterial.h>

namespace osg {

OSG_ABSTRACT_CONTAINER_DEF(Material)

Material::~Material() { subRefCP(state); }

const StatePtr& Material::clearState() {
    if (state != NullFC)
        state->clearChunks();
    else
        setRefdCP(state, State::create());
    return state;
}

void Material::changed(BitVector whichField, UInt32 origin) {
    rebuildState();
    Inherited::changed(whichField, origin);
}

} // namespace osg
