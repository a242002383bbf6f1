#include <OpenSG/OSGGroup.h>

#include <OpenSG/OSGComponentTransform.h>
#include <OpenSG/OSGDistanceLOD.h>
#include <OpenSG/OSGSwitch.h>
#include <OpenSG/OSGTransform.h>

namespace osg {

OSG_CONTAINER_DEF(Group)
OSG_CONTAINER_DEF(Switch)
OSG_CONTAINER_DEF(DistanceLOD)
OSG_CONTAINER_DEF(Transform)
OSG_CONTAINER_DEF(ComponentTransform)

void Transform::changed(BitVector whichField, UInt32 origin) {
    if (whichField & MatrixFieldMask) invalidateVolume();
    Inherited::changed(whichField, origin);
}

void Transform::accumulateMatrix(Matrix& result) { result.mult(getMatrix()); }

void Transform::adjustVolume(Volume& volume) { volume.transform(getMatrix()); }

void ComponentTransform::changed(BitVector whichField, UInt32 origin) {
    constexpr BitVector components =
        CenterFieldMask | RotationFieldMask | ScaleFieldMask | ScaleOrientationFieldMask | TranslationFieldMask;
    if (whichField & components) {
        getMatrix().setTransform(getTranslation(), getRotation(), getScale(), getScaleOrientation(), getCenter());
        whichField |= MatrixFieldMask;
    }
    Inherited::changed(whichField, origin);
}

} // namespace osg
