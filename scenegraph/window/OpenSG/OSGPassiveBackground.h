#pragma once

#include <OpenSG/OSGBackground.h>

namespace osg {

class PassiveBackground;
typedef FCPtr<BackgroundPtr, PassiveBackground> PassiveBackgroundPtr;
typedef RefPtr<PassiveBackgroundPtr> PassiveBackgroundRefPtr;

/// Clears nothing: for drawing over what is there.
class OSG_SYSTEMLIB_DLLMAPPING PassiveBackground : public Background {
    OSG_CONTAINER(PassiveBackground, Background)

public:
    void clear(DrawActionBase*, Viewport*) override {}

protected:
    PassiveBackground() = default;
};

} // namespace osg
