#pragma once

#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGFieldDescription.h>
#include <OpenSG/OSGSFMathTypes.h>
#include <OpenSG/OSGSFSysTypes.h>
#include <OpenSG/OSGSFVecTypes.h>
#include <OpenSG/OSGVolume.h>

// What an installed OpenSG 1.8 asks of a container class.

namespace osg {

/// In adjustVolume(): nothing of the subtree or its ancestors is culled. Culling asks for nothing but bounds, so theirs
/// reach over everything; squares of them are finite still.
inline void makeAlwaysVisible(Volume& volume) {
    const Real32 reach = 1e18f;
    volume.setEmpty();
    volume.extendBy(Pnt3f(-reach, -reach, -reach));
    volume.extendBy(Pnt3f(reach, reach, reach));
}

} // namespace osg

#define TESK_CORE_TYPE(CLASS, PARENT)                                                                                  \
public:                                                                                                                \
    typedef PARENT Inherited;                                                                                          \
    typedef CLASS Self;                                                                                                \
    typedef CLASS##Ptr Ptr;                                                                                            \
    static ::osg::FieldContainerType& getClassType();                                                                  \
    static ::osg::UInt32 getClassTypeId();                                                                             \
    static CLASS##Ptr create();                                                                                        \
    static CLASS##Ptr createEmpty();                                                                                   \
    ::osg::FieldContainerType& getType() override;                                                                     \
    const ::osg::FieldContainerType& getType() const override;                                                         \
    ::osg::UInt32 getContainerSize() const override;                                                                   \
    ::osg::FieldContainerPtr shallowCopy() const override;                                                             \
                                                                                                                       \
protected:                                                                                                             \
    CLASS() = default;                                                                                                 \
    CLASS(const CLASS&) = default;                                                                                     \
    ~CLASS() override = default;                                                                                       \
    void executeSyncImpl(CLASS* other, const ::osg::BitVector& whichField);                                            \
    void executeSync(::osg::FieldContainer& other, const ::osg::BitVector& whichField) override;                       \
                                                                                                                       \
private:                                                                                                               \
    friend class ::osg::FieldContainer;                                                                                \
    static ::osg::FieldDescription* _desc[];                                                                           \
    static ::osg::FieldContainerType _type;

#define TESK_CORE_DEF(CLASS, PARENT, FIELDS)                                                                           \
    FieldDescription* CLASS::_desc[] = {FIELDS(TESK_FIELD_DESCRIPTION)};                                               \
    FieldContainerType CLASS::_type(                                                                                   \
        #CLASS, #PARENT, nullptr, []() -> FieldContainerPtr { return createEmpty(); }, CLASS::initMethod,              \
        CLASS::_desc, sizeof(CLASS::_desc));                                                                           \
    FieldContainerType& CLASS::getClassType() { return _type; }                                                        \
    UInt32 CLASS::getClassTypeId() { return _type.getId(); }                                                           \
    FieldContainerType& CLASS::getType() { return _type; }                                                             \
    const FieldContainerType& CLASS::getType() const { return _type; }                                                 \
    UInt32 CLASS::getContainerSize() const { return sizeof(CLASS); }                                                   \
    CLASS##Ptr CLASS::create() {                                                                                       \
        return _type.getPrototype() == NullFC ? CLASS##Ptr() : CLASS##Ptr::dcast(_type.getPrototype()->shallowCopy()); \
    }                                                                                                                  \
    CLASS##Ptr CLASS::createEmpty() {                                                                                  \
        CLASS##Ptr result;                                                                                             \
        newPtr(result);                                                                                                \
        return result;                                                                                                 \
    }                                                                                                                  \
    FieldContainerPtr CLASS::shallowCopy() const {                                                                     \
        CLASS##Ptr result;                                                                                             \
        newPtr(result, this);                                                                                          \
        return result;                                                                                                 \
    }                                                                                                                  \
    void CLASS::executeSyncImpl(CLASS* other, const BitVector& whichField) {                                           \
        Inherited::executeSyncImpl(other, whichField);                                                                 \
        FIELDS(TESK_FIELD_SYNC)                                                                                        \
    }                                                                                                                  \
    void CLASS::executeSync(FieldContainer& other, const BitVector& whichField) {                                      \
        executeSyncImpl(static_cast<CLASS*>(&other), whichField);                                                      \
    }

#define TESK_FIELD_DESCRIPTION(FIELD_TYPE, TYPE, UPPER_NAME, NAME, ...)                                                \
    new FieldDescription(FIELD_TYPE::getClassType(), #NAME, UPPER_NAME##FieldId, UPPER_NAME##FieldMask, false,         \
                         (FieldAccessMethod)&Self::getSF##UPPER_NAME),

#define TESK_FIELD_SYNC(FIELD_TYPE, TYPE, UPPER_NAME, NAME, ...)                                                       \
    if (whichField & UPPER_NAME##FieldMask) NAME.syncWith(other->NAME);
