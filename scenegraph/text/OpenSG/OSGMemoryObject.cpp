#include <OpenSG/OSGMemoryObject.h>

namespace osg {

MemoryObject::~MemoryObject() = default;

void MemoryObject::subRef() {
    if (--refCount <= 0) delete this;
}

} // namespace osg
