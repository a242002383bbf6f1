#pragma once

#include <platform/Export.h>

#include <OpenSG/OSGCamera.h>

/// Questions about cameras of any kind.
class TESK_PLATFORM_EXPORT tkUberCameraUtils {
public:
    /// Whether sizes on screen do not depend on the distance. Kinds of cameras that are not known are judged by their
    /// projection; false for a null camera.
    static bool isOrthographicCamera(const osg::CameraPtr& camera);
};
