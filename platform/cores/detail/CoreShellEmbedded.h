#pragma once

#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGQuaternion.h>
#include <OpenSG/OSGVector.h>
#include <OpenSG/OSGVolume.h>

// What the embedded scene graph asks of a container class.

namespace osg {

typedef SField<Pnt3f> SFPnt3f;
typedef SField<Vec2f> SFVec2f;
typedef SField<Vec3f> SFVec3f;
typedef SField<Quaternion> SFQuaternion;

/// In adjustVolume(): nothing of the subtree or its ancestors is culled; their bounds stay as if it were not there.
inline void makeAlwaysVisible(Volume& volume) {
    volume.setEmpty();
    volume.setAlwaysVisible();
}

} // namespace osg

#define TESK_CORE_TYPE(CLASS, PARENT)                                                                                  \
    OSG_CONTAINER(CLASS, PARENT)                                                                                       \
protected:                                                                                                             \
    CLASS() = default;

#define TESK_CORE_DEF(CLASS, PARENT, FIELDS)                                                                           \
    OSG_ABSTRACT_CONTAINER_DEF(CLASS)                                                                                  \
    CLASS##Ptr CLASS::create() {                                                                                       \
        static const bool isInitialised = (initMethod(), true);                                                        \
        return isInitialised && isSystemRunning() ? CLASS##Ptr(*new CLASS) : CLASS##Ptr();                             \
    }
