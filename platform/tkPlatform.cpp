#include <platform/tkPlatform.h>

#include <cmath>

namespace {

float dpiScaleY = 1.0f;

} // namespace

float tkPlatform::getDpiScaleY() { return dpiScaleY; }

void tkPlatform::setDpiScaleY(float scale) {
    if (std::isfinite(scale) && scale > 0.0f) dpiScaleY = scale;
}
