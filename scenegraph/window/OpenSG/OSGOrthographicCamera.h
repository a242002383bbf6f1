#pragma once

#include <OpenSG/OSGCamera.h>

namespace osg {

class OrthographicCamera;
typedef FCPtr<CameraPtr, OrthographicCamera> OrthographicCameraPtr;
typedef RefPtr<OrthographicCameraPtr> OrthographicCameraRefPtr;

/// A camera in whose pictures things have the same size at any distance.
///
/// The vertical size is the height of the view in world units, 0 until set. The aspect is the width of a pixel by its
/// height.
class OSG_SYSTEMLIB_DLLMAPPING OrthographicCamera : public Camera {
    OSG_CONTAINER(OrthographicCamera, Camera)

public:
    enum : UInt32 { VerticalSizeFieldId = Inherited::NextFieldId, AspectFieldId, NextFieldId };
    static constexpr BitVector VerticalSizeFieldMask = fieldMask(VerticalSizeFieldId);
    static constexpr BitVector AspectFieldMask = fieldMask(AspectFieldId);

    Real32 getVerticalSize() const { return verticalSize; }
    void setVerticalSize(Real32 value) { verticalSize = value; }
    Real32 getAspect() const { return aspect; }
    void setAspect(Real32 value) { aspect = value; }

    void getProjection(Matrix& result, UInt32 width, UInt32 height) override;

protected:
    OrthographicCamera() = default;

private:
    Real32 verticalSize = 0.0f;
    Real32 aspect = 1.0f;
};

} // namespace osg
