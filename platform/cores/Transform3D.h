#pragma once

#include <platform/Export.h>
#include <platform/cores/detail/CoreShell.h>

#include <OpenSG/OSGAction.h>
#include <OpenSG/OSGQuaternion.h>
#include <OpenSG/OSGTransform.h>
#include <OpenSG/OSGVector.h>

#define TESK_TRANSFORM3D_FIELDS(FIELD)                                                                                 \
    FIELD(SFVec3f, Vec3f, Translation, translation, 0.0f, 0.0f, 0.0f)                                                  \
    FIELD(SFQuaternion, Quaternion, Rotation, rotation, Quaternion::identity())                                        \
    FIELD(SFVec3f, Vec3f, Scale, scale, 1.0f, 1.0f, 1.0f)

namespace osg {

class Transform3D;
typedef FCPtr<TransformPtr, Transform3D> Transform3DPtr;
typedef RefPtr<Transform3DPtr> Transform3DRefPtr;

/// A transform given by translation * rotation * scale. Its matrix is rebuilt when an edit of one of them ends.
class TESK_PLATFORM_EXPORT Transform3D : public Transform {
    TESK_CORE(Transform3D, Transform, TESK_TRANSFORM3D_FIELDS)

public:
    void changed(BitVector whichField, UInt32 origin) override;

private:
    using Transform::setMatrix;

    static void initMethod();
    Action::ResultE renderEnter(Action* action);
    Action::ResultE renderLeave(Action* action);
    Action::ResultE intersectEnter(Action* action);
    Action::ResultE intersectLeave(Action* action);
};

} // namespace osg
