#pragma once

#include <OpenSG/OSGQuaternion.h>
#include <OpenSG/OSGTransform.h>
#include <OpenSG/OSGVector.h>

namespace osg {

class ComponentTransform;
typedef FCPtr<TransformPtr, ComponentTransform> ComponentTransformPtr;
typedef RefPtr<ComponentTransformPtr> ComponentTransformRefPtr;

/// A transform given by its components. Its matrix is rebuilt when an edit of a component ends:
/// translation * center * rotation * scaleOrientation * scale * scaleOrientation^-1 * center^-1.
class OSG_SYSTEMLIB_DLLMAPPING ComponentTransform : public Transform {
    OSG_CONTAINER(ComponentTransform, Transform)

public:
    enum : UInt32 {
        CenterFieldId = Inherited::NextFieldId,
        RotationFieldId,
        ScaleFieldId,
        ScaleOrientationFieldId,
        TranslationFieldId,
        NextFieldId
    };
    static constexpr BitVector CenterFieldMask = fieldMask(CenterFieldId);
    static constexpr BitVector RotationFieldMask = fieldMask(RotationFieldId);
    static constexpr BitVector ScaleFieldMask = fieldMask(ScaleFieldId);
    static constexpr BitVector ScaleOrientationFieldMask = fieldMask(ScaleOrientationFieldId);
    static constexpr BitVector TranslationFieldMask = fieldMask(TranslationFieldId);

    Vec3f& getCenter() { return center.getValue(); }
    void setCenter(const Vec3f& value) { center.setValue(value); }
    Quaternion& getRotation() { return rotation.getValue(); }
    void setRotation(const Quaternion& value) { rotation.setValue(value); }
    Vec3f& getScale() { return scale.getValue(); }
    void setScale(const Vec3f& value) { scale.setValue(value); }
    Quaternion& getScaleOrientation() { return scaleOrientation.getValue(); }
    void setScaleOrientation(const Quaternion& value) { scaleOrientation.setValue(value); }
    Vec3f& getTranslation() { return translation.getValue(); }
    void setTranslation(const Vec3f& value) { translation.setValue(value); }

    void changed(BitVector whichField, UInt32 origin) override;

protected:
    ComponentTransform() = default;

private:
    using Transform::setMatrix;

    SField<Vec3f> center;
    SField<Quaternion> rotation;
    SField<Vec3f> scale{Vec3f(1.0f, 1.0f, 1.0f)};
    SField<Quaternion> scaleOrientation;
    SField<Vec3f> translation;
};

} // namespace osg
