#pragma once

// The shell is a matter of the include path: the one of the scene graph that is found there.
#if __has_include(<OpenSG/OSGFieldDescription.h>)
#include <platform/cores/detail/CoreShellOpenSG.h>
#else
#include <platform/cores/detail/CoreShellEmbedded.h>
#endif

/// A core class states its fields once, as a macro of rows FIELD(field type, type, Name, name, default), and puts
///     TESK_CORE(Class, Parent, FIELDS)
/// first in the class and
///     TESK_CORE_DEF(Class, Parent, FIELDS)
/// in namespace osg of its source file. It declares `static void initMethod();`, where it registers what actions do
/// with it; that runs once, before the first object is made.
#define TESK_CORE(CLASS, PARENT, FIELDS)                                                                               \
    TESK_CORE_TYPE(CLASS, PARENT)                                                                                      \
public:                                                                                                                \
    enum : ::osg::UInt32 { LastInheritedFieldId = PARENT::NextFieldId - 1, FIELDS(TESK_FIELD_ID) NextFieldId };        \
    FIELDS(TESK_FIELD)                                                                                                 \
                                                                                                                       \
private:

#define TESK_FIELD_ID(FIELD_TYPE, TYPE, UPPER_NAME, NAME, ...) UPPER_NAME##FieldId,

#define TESK_FIELD(FIELD_TYPE, TYPE, UPPER_NAME, NAME, ...)                                                            \
public:                                                                                                                \
    static constexpr ::osg::BitVector UPPER_NAME##FieldMask = ::osg::BitVector(1) << UPPER_NAME##FieldId;              \
    ::osg::FIELD_TYPE* getSF##UPPER_NAME() { return &NAME; }                                                           \
    TYPE& get##UPPER_NAME() { return NAME.getValue(); }                                                                \
    const TYPE& get##UPPER_NAME() const { return NAME.getValue(); }                                                    \
    void set##UPPER_NAME(const TYPE& value) { NAME.setValue(value); }                                                  \
                                                                                                                       \
private:                                                                                                               \
    ::osg::FIELD_TYPE NAME{TYPE(__VA_ARGS__)};
