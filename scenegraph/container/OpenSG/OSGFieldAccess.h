#pragma once

#include <OpenSG/OSGFieldContainer.h>

/// A single field of a container class: the stored value, access to it, and its mask. The class's enumeration of field
/// numbers, NAMEFieldId among them, precedes it; what follows is public.
#define OSG_FIELD(TYPE, NAME, MEMBER, INITIAL)                                                                         \
private:                                                                                                               \
    TYPE MEMBER = INITIAL;                                                                                             \
                                                                                                                       \
public:                                                                                                                \
    TYPE& get##NAME() { return MEMBER; }                                                                               \
    const TYPE& get##NAME() const { return MEMBER; }                                                                   \
    void set##NAME(const TYPE& value) { MEMBER = value; }                                                              \
    static constexpr ::osg::BitVector NAME##FieldMask = ::osg::fieldMask(NAME##FieldId)
