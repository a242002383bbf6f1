#pragma once

#include <OpenSG/OSGFieldContainerPtr.h>

namespace osg {

/// A pointer that holds a reference to its object.
template <class PtrType> class RefPtr {
public:
    typedef PtrType Ptr;

    RefPtr() = default;
    explicit RefPtr(const Ptr& object) : pointer(object) { addRefCP(pointer); }
    RefPtr(const RefPtr& other) : pointer(other.pointer) { addRefCP(pointer); }
    virtual ~RefPtr() { subRefCP(pointer); }

    RefPtr& operator=(const RefPtr& other) {
        setRefdCP(pointer, other.pointer);
        return *this;
    }
    RefPtr& operator=(const Ptr& object) {
        setRefdCP(pointer, object);
        return *this;
    }
    RefPtr& operator=(const NullFieldContainerPtr&) {
        clearRefCP(pointer);
        return *this;
    }

    Ptr get() const { return pointer; }
    operator Ptr() const { return pointer; }
    const Ptr& operator->() const { return pointer; }
    decltype(auto) getCPtr() const { return pointer.getCPtr(); }

    explicit operator bool() const { return static_cast<bool>(pointer); }
    bool operator!() const { return !pointer; }

private:
    Ptr pointer;
};

} // namespace osg
