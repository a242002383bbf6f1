#pragma once

#include <platform/Export.h>
#include <platform/cores/detail/CoreShell.h>

#include <OpenSG/OSGCamera.h>

#define TESK_UBERCAMERA_FIELDS(FIELD)                                                                                  \
    FIELD(SFBool, bool, Orthographic, orthographic, false)                                                             \
    FIELD(SFReal32, Real32, Fov, fov, Pi / 3.0f)                                                                       \
    FIELD(SFReal32, Real32, VerticalSize, verticalSize, 1.0f)

namespace osg {

class UberCamera;
typedef FCPtr<CameraPtr, UberCamera> UberCameraPtr;
typedef RefPtr<UberCameraPtr> UberCameraRefPtr;

/// A camera that switches between perspective and orthographic projection.
///
/// `orthographic` chooses. In perspective `fov` is the vertical angle of view in radians (above pi: in degrees),
/// otherwise `verticalSize` the height of the view in world units; the width follows the viewport. Beacon, near and
/// far as every camera's: near and far are 0 until they are set.
class TESK_PLATFORM_EXPORT UberCamera : public Camera {
    TESK_CORE(UberCamera, Camera, TESK_UBERCAMERA_FIELDS)

public:
    /// The identity for a view without pixels, and where near, far, angle or size leave no projection.
    void getProjection(Matrix& result, UInt32 width, UInt32 height) override;

private:
    static void initMethod() {}
};

} // namespace osg
