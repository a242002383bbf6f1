#pragma once

#include <OpenSG/OSGCamera.h>

namespace osg {

class PerspectiveCamera;
typedef FCPtr<CameraPtr, PerspectiveCamera> PerspectiveCameraPtr;
typedef RefPtr<PerspectiveCameraPtr> PerspectiveCameraRefPtr;

/// A camera in whose pictures things grow smaller with distance.
///
/// The field of view is the vertical opening in radians, 0 until set; a value above pi is taken as degrees. The aspect
/// is the width of a pixel by its height.
class OSG_SYSTEMLIB_DLLMAPPING PerspectiveCamera : public Camera {
    OSG_CONTAINER(PerspectiveCamera, Camera)

public:
    enum : UInt32 { FovFieldId = Inherited::NextFieldId, AspectFieldId, NextFieldId };
    static constexpr BitVector FovFieldMask = fieldMask(FovFieldId);
    static constexpr BitVector AspectFieldMask = fieldMask(AspectFieldId);

    Real32 getFov() const { return fov; }
    void setFov(Real32 value) { fov = value; }
    Real32 getAspect() const { return aspect; }
    void setAspect(Real32 value) { aspect = value; }

    void getProjection(Matrix& result, UInt32 width, UInt32 height) override;

protected:
    PerspectiveCamera() = default;

private:
    Real32 fov = 0.0f;
    Real32 aspect = 1.0f;
};

} // namespace osg
