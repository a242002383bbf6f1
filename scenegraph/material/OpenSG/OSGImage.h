#pragma once

#include <OpenSG/OSGAttachmentContainer.h>
#include <OpenSG/OSGGL.h>
#include <OpenSG/OSGRefPtr.h>

namespace osg {

class Image;
typedef FCPtr<AttachmentContainerPtr, Image> ImagePtr;
typedef RefPtr<ImagePtr> ImageRefPtr;

/// A picture of bytes, row by row from the bottom up, the components of a pixel side by side.
///
/// Texture chunks do not notice a change of their picture: end an edit of them too.
class OSG_SYSTEMLIB_DLLMAPPING Image : public AttachmentContainer {
    OSG_CONTAINER(Image, AttachmentContainer)

public:
    /// The remaining numbers are those of fields of no use here.
    enum : UInt32 { PixelFieldId = Inherited::NextFieldId + 10, NextFieldId = PixelFieldId + 14 };
    static constexpr BitVector PixelFieldMask = fieldMask(PixelFieldId);

    enum PixelFormat {
        OSG_INVALID_PF = 0,
        OSG_A_PF = GL_ALPHA,
        OSG_L_PF = GL_LUMINANCE,
        OSG_LA_PF = GL_LUMINANCE_ALPHA,
        OSG_RGB_PF = GL_RGB,
        OSG_RGBA_PF = GL_RGBA
    };

    /// Makes the picture anew, all bytes 0 without data; a size below 1 counts as 1. False, and nothing changes, for
    /// another format, 2^31 bytes and more, and anything but a single flat picture.
    bool set(UInt32 pixelFormat, Int32 width, Int32 height = 1, Int32 depth = 1, Int32 mipmapCount = 1,
             Int32 frameCount = 1, Time frameDelay = 0.0, const UInt8* data = nullptr);
    /// Sets every byte.
    void clear(UChar8 pixelValue = 0);

    const Int32& getWidth() const { return width; }
    const Int32& getHeight() const { return height; }
    /// Bytes a pixel.
    const Int32& getBpp() const { return bytesPerPixel; }
    const UInt32& getPixelFormat() const { return pixelFormat; }
    bool hasAlphaChannel() const;

    /// Null before set().
    UInt8* getData() { return pixels.empty() ? nullptr : pixels.data(); }
    const UInt8* getData() const { return pixels.empty() ? nullptr : pixels.data(); }
    /// In bytes.
    unsigned long getSize() const { return pixels.size(); }

protected:
    Image() = default;

private:
    UInt32 pixelFormat = OSG_INVALID_PF;
    Int32 width = 0;
    Int32 height = 1;
    Int32 bytesPerPixel = 1;
    MField<UInt8> pixels;
};

} // namespace osg
