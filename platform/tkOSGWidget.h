#pragma once

#include <platform/Export.h>

#include <OpenSG/OSGCamera.h>
#include <OpenSG/OSGViewport.h>
#include <OpenSG/OSGWindow.h>

/// The view in which the application shows the scene.
///
/// The application says which viewport it draws; what is not known is null. The viewport is not counted: take it back
/// with setViewport(NullFC) before it goes.
class TESK_PLATFORM_EXPORT tkOSGWidget {
public:
    static void setViewport(const osg::ViewportPtr& viewport);

    static osg::ViewportPtr getViewport();
    /// The viewport's camera.
    static osg::CameraPtr getCamera();
    /// The window that the viewport is part of.
    static osg::WindowPtr getWindow();
};
