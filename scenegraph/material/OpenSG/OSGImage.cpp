#include <OpenSG/OSGImage.h>

#include <OpenSG/OSGBaseFunctions.h>

#include <algorithm>
#include <limits>

namespace osg {

namespace {

/// Components of a pixel; 0 for formats that images do not have.
Int32 countComponents(UInt32 pixelFormat) {
    switch (pixelFormat) {
    case Image::OSG_A_PF:
    case Image::OSG_L_PF:
        return 1;
    case Image::OSG_LA_PF:
        return 2;
    case Image::OSG_RGB_PF:
        return 3;
    case Image::OSG_RGBA_PF:
        return 4;
    default:
        return 0;
    }
}

} // namespace

OSG_CONTAINER_DEF(Image)

bool Image::set(UInt32 newFormat, Int32 newWidth, Int32 newHeight, Int32 depth, Int32 mipmapCount, Int32 frameCount,
                Time, const UInt8* data) {
    const Int32 components = countComponents(newFormat);
    if (components == 0 || depth != 1 || mipmapCount != 1 || frameCount != 1) return false;
    newWidth = osgMax(newWidth, 1);
    newHeight = osgMax(newHeight, 1);
    const UInt64 count = UInt64(newWidth) * UInt64(newHeight);
    if (count > UInt64(std::numeric_limits<Int32>::max() / components)) return false;
    const size_t size = static_cast<size_t>(count) * static_cast<size_t>(components);
    if (data)
        pixels.assign(data, data + size);
    else
        pixels.assign(size, 0);
    pixelFormat = newFormat;
    width = newWidth;
    height = newHeight;
    bytesPerPixel = components;
    return true;
}

void Image::clear(UChar8 pixelValue) { std::fill(pixels.begin(), pixels.end(), pixelValue); }

bool Image::hasAlphaChannel() const {
    return pixelFormat == OSG_A_PF || pixelFormat == OSG_LA_PF || pixelFormat == OSG_RGBA_PF;
}

} // namespace osg
