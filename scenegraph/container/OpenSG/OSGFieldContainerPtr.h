#pragma once

#include <OpenSG/OSGBaseTypes.h>
#include <OpenSG/OSGSystemDef.h>

#include <type_traits>

namespace osg {

class FieldContainer;
class FieldContainerType;

/// What all pointers to field containers share: a plain address without ownership.
///
/// Pointers of any static type compare by the identity of their object; null orders before every object.
class OSG_SYSTEMLIB_DLLMAPPING FieldContainerPtrBase {
public:
    Int32 getRefCount() const;
    UInt32 getFieldContainerId() const;

    explicit operator bool() const { return object != nullptr; }
    bool operator!() const { return object == nullptr; }

    friend bool operator==(const FieldContainerPtrBase& a, const FieldContainerPtrBase& b) {
        return a.object == b.object;
    }
    friend bool operator!=(const FieldContainerPtrBase& a, const FieldContainerPtrBase& b) {
        return a.object != b.object;
    }
    friend bool operator<(const FieldContainerPtrBase& a, const FieldContainerPtrBase& b) {
        return a.object < b.object;
    }

protected:
    FieldContainerPtrBase() = default;
    explicit FieldContainerPtrBase(FieldContainer* container) : object(container) {}

    /// Mutable because releasing the last reference nulls the caller's pointer, which is passed as const.
    mutable FieldContainer* object = nullptr;

    friend class ContainerAccess;
};

/// The type of NullFC.
class NullFieldContainerPtr : public FieldContainerPtrBase {};

inline const NullFieldContainerPtr NullFC;

/// The library's own door to the address inside a pointer of unknown type.
class OSG_SYSTEMLIB_DLLMAPPING ContainerAccess {
public:
    static bool isDerivedFrom(const FieldContainerPtrBase& pointer, const FieldContainerType& type);
    static FieldContainer* get(const FieldContainerPtrBase& pointer) { return pointer.object; }
    static void setNull(const FieldContainerPtrBase& pointer) { pointer.object = nullptr; }
};

/// Pointer to a container of type Class. The pointer classes derive from each other as the container classes do.
template <class BasePtr, class Class> class FCPtr : public BasePtr {
public:
    FCPtr() = default;
    FCPtr(const NullFieldContainerPtr&) {}
    explicit FCPtr(const Class& container) { this->object = const_cast<Class*>(&container); }

    Class* operator->() const { return static_cast<Class*>(this->object); }
    Class& operator*() const { return *static_cast<Class*>(this->object); }
    Class* getCPtr() const { return static_cast<Class*>(this->object); }

    /// The same object as a pointer of this type; null when it is null or not of this class.
    template <class Ptr> static FCPtr dcast(const Ptr& pointer) {
        static_assert(std::is_base_of_v<FieldContainerPtrBase, Ptr>, "pass a container pointer, not a RefPtr");
        FCPtr result;
        if (ContainerAccess::isDerivedFrom(pointer, Class::getClassType()))
            result.object = ContainerAccess::get(pointer);
        return result;
    }
};

template <class ResultPtr, class Ptr> ResultPtr dynamic_fcptr_cast(const Ptr& pointer) {
    return ResultPtr::dcast(pointer);
}

typedef FCPtr<FieldContainerPtrBase, FieldContainer> FieldContainerPtr;

/// Adds a reference; null is ignored.
OSG_SYSTEMLIB_DLLMAPPING void addRefCP(const FieldContainerPtrBase& pointer);
/// Releases a reference and destroys the object when none is left; then the passed pointer becomes null.
OSG_SYSTEMLIB_DLLMAPPING void subRefCP(const FieldContainerPtrBase& pointer);

template <class Ptr> void clearRefCP(Ptr& pointer) {
    subRefCP(pointer);
    pointer = NullFC;
}

/// Releases the old object, then refers to the new one; nothing when they are the same.
template <class Ptr, class OtherPtr> void setRefdCP(Ptr& pointer, const OtherPtr& other) {
    if (pointer == other) return;
    subRefCP(pointer);
    pointer = other;
    addRefCP(pointer);
}

} // namespace osg
