#pragma once

#include <OpenSG/OSGWindow.h>

namespace osg {

class PassiveWindow;
typedef FCPtr<WindowPtr, PassiveWindow> PassiveWindowPtr;
typedef RefPtr<PassiveWindowPtr> PassiveWindowRefPtr;

/// A window whose OpenGL context belongs to somebody else, who makes it current before every call that draws.
class OSG_SYSTEMLIB_DLLMAPPING PassiveWindow : public Window {
    OSG_CONTAINER(PassiveWindow, Window)

public:
    void activate() override {}
    void deactivate() override {}
    void swap() override {}

protected:
    PassiveWindow() = default;
};

} // namespace osg
