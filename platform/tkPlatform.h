#pragma once

#include <platform/Export.h>

/// What the library needs to know about the display.
class TESK_PLATFORM_EXPORT tkPlatform {
public:
    /// The vertical scale of the display: 1 for 96 dots an inch, until the application sets another. Labels read it
    /// when they are created.
    static float getDpiScaleY();
    /// Ignores what is not finite and positive.
    static void setDpiScaleY(float scale);
};
