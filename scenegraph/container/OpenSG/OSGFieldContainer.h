#pragma once

#include <OpenSG/OSGBaseTypes.h>
#include <OpenSG/OSGField.h>
#include <OpenSG/OSGFieldContainerPtr.h>
#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGSystemDef.h>

namespace osg {

struct FieldBits {
    static constexpr BitVector AllFields = ~BitVector(0);
    static constexpr BitVector NoField = 0;
};

struct ChangedOrigin {
    static constexpr UInt32 External = 1;
    static constexpr UInt32 Sync = 2;
    static constexpr UInt32 Child = 4;
    static constexpr UInt32 Abstract = 8;
};

constexpr BitVector fieldMask(UInt32 fieldId) { return BitVector(1) << fieldId; }

/// Root of all counted, typed objects of the scene graph.
///
/// An object starts with a reference count of 0; the first release destroys it. Single-threaded.
class OSG_SYSTEMLIB_DLLMAPPING FieldContainer {
public:
    typedef FieldContainerPtr Ptr;
    enum : UInt32 { NextFieldId = 1 };

    FieldContainer(const FieldContainer&) = delete;
    FieldContainer& operator=(const FieldContainer&) = delete;

    static FieldContainerType& getClassType();
    virtual FieldContainerType& getType() { return getClassType(); }
    virtual const FieldContainerType& getType() const { return getClassType(); }
    const Char8* getTypeName() const { return getType().getCName(); }
    UInt32 getTypeId() const { return getType().getId(); }
    UInt32 getGroupId() const { return getType().getGroupId(); }

    /// Tells the object that fields changed, so that it refreshes what it derives from them.
    virtual void changed(BitVector whichField, UInt32 origin);

protected:
    FieldContainer();
    virtual ~FieldContainer();

    /// Whether create() may make objects: only between osgInit() and osgExit().
    static bool isSystemRunning();

private:
    friend class FieldContainerPtrBase;
    friend OSG_SYSTEMLIB_DLLMAPPING void addRefCP(const FieldContainerPtrBase& pointer);
    friend OSG_SYSTEMLIB_DLLMAPPING void subRefCP(const FieldContainerPtrBase& pointer);

    UInt32 id;
    Int32 refCount = 0;
};

/// Finds live objects by number.
class OSG_SYSTEMLIB_DLLMAPPING FieldContainerFactory {
public:
    static FieldContainerFactory* the();
    /// The live object with this number; null after its destruction.
    FieldContainerPtr getContainer(UInt32 id) const;
};

/// Records the edit's begin; nothing observable.
OSG_SYSTEMLIB_DLLMAPPING void beginEditCP(const FieldContainerPtr& container, BitVector mask = FieldBits::AllFields,
                                          UInt32 origin = ChangedOrigin::External);
/// Records the change in the change list, then notifies the object.
OSG_SYSTEMLIB_DLLMAPPING void endEditCP(const FieldContainerPtr& container, BitVector mask = FieldBits::AllFields,
                                        UInt32 origin = ChangedOrigin::External);
/// Only notifies the object.
OSG_SYSTEMLIB_DLLMAPPING void changedCP(const FieldContainerPtr& container, BitVector mask = FieldBits::AllFields,
                                        UInt32 origin = ChangedOrigin::External);
/// Only records the change.
OSG_SYSTEMLIB_DLLMAPPING void endEditNotChangedCP(const FieldContainerPtr& container,
                                                  BitVector mask = FieldBits::AllFields,
                                                  UInt32 origin = ChangedOrigin::External);

/// An edit that lasts as long as this object.
class CPEditor {
public:
    explicit CPEditor(const FieldContainerPtr& edited, BitVector fields = FieldBits::AllFields)
        : container(edited), mask(fields) {
        beginEditCP(container, mask);
    }
    ~CPEditor() { endEditCP(container, mask); }
    CPEditor(const CPEditor&) = delete;
    CPEditor& operator=(const CPEditor&) = delete;

private:
    FieldContainerPtr container;
    BitVector mask;
};

} // namespace osg

#define CPEdit(variable, mask) ::osg::CPEditor variable##Editor(variable, mask)
#define CPEditAll(variable) ::osg::CPEditor variable##Editor(variable)

/// What every container class declares about its type. Put first in the class; the pointer type CLASSPtr precedes it.
#define OSG_ABSTRACT_CONTAINER(CLASS, PARENT)                                                                          \
public:                                                                                                                \
    typedef PARENT Inherited;                                                                                          \
    typedef CLASS##Ptr Ptr;                                                                                            \
    static ::osg::FieldContainerType& getClassType();                                                                  \
    static ::osg::UInt32 getClassTypeId() { return getClassType().getId(); }                                           \
    static ::osg::UInt32 getClassGroupId() { return getClassType().getGroupId(); }                                     \
    ::osg::FieldContainerType& getType() override { return getClassType(); }                                           \
    const ::osg::FieldContainerType& getType() const override { return getClassType(); }                               \
                                                                                                                       \
private:

/// The same for a class that can be created.
#define OSG_CONTAINER(CLASS, PARENT)                                                                                   \
    OSG_ABSTRACT_CONTAINER(CLASS, PARENT)                                                                              \
public:                                                                                                                \
    /** A new object without references; null before osgInit(). */                                                     \
    static CLASS##Ptr create();                                                                                        \
                                                                                                                       \
private:

/// The definitions that belong to the declarations above, in the class's source file.
#define OSG_ABSTRACT_CONTAINER_DEF(CLASS)                                                                              \
    ::osg::FieldContainerType& CLASS::getClassType() {                                                                 \
        static ::osg::FieldContainerType type(#CLASS, &Inherited::getClassType());                                     \
        return type;                                                                                                   \
    }

#define OSG_CONTAINER_DEF(CLASS)                                                                                       \
    OSG_ABSTRACT_CONTAINER_DEF(CLASS)                                                                                  \
    CLASS##Ptr CLASS::create() { return isSystemRunning() ? CLASS##Ptr(*new CLASS) : CLASS##Ptr(); }
