#pragma once

#include <OpenSG/OSGBaseTypes.h>
#include <OpenSG/OSGSystemDef.h>

namespace osg {

/// An object that counts those who keep it, from 0, and dies when the last one lets it go.
class OSG_SYSTEMLIB_DLLMAPPING MemoryObject {
public:
    void addRef() { ++refCount; }
    /// Destroys the object when the count falls to 0 or below.
    void subRef();
    Int32 getRefCount() const { return refCount; }

    MemoryObject(const MemoryObject&) = delete;
    MemoryObject& operator=(const MemoryObject&) = delete;

protected:
    MemoryObject() = default;
    virtual ~MemoryObject();

private:
    Int32 refCount = 0;
};

/// Null is allowed in all three.
template <class Object> void addRefP(Object*& object) {
    if (object) object->addRef();
}

/// The variable keeps its value, which dangles if nobody else keeps the object.
template <class Object> void subRefP(Object*& object) {
    if (object) object->subRef();
}

/// Lets the object go and sets the variable to null.
template <class Object> void clearRefP(Object*& object) {
    subRefP(object);
    object = nullptr;
}

} // namespace osg
