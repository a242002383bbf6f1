#pragma once

#include <OpenSG/OSGTextFace.h>
#include <OpenSG/detail/GlyphPacking.h>

#include <memory>
#include <string>

namespace osg {

/// A glyph as it is rendered, in pixels; left and top are measured from the pen on the base line.
struct GlyphPixels {
    UInt32 width = 0;
    UInt32 height = 0;
    Int32 left = 0;
    Int32 top = 0;
    Int32 advance = 0;
};

/// An installed font at one size, found by fontconfig and rendered by FreeType.
class FontFile {
public:
    /// The font of that family and style, or fontconfig's substitute; "SANS", "SERIF" and "TYPEWRITER" name kinds of
    /// families. Null when no font can be opened in that size.
    static std::unique_ptr<FontFile> open(const std::string& family, TextFace::Style style, UInt32 pixelSize);

    virtual ~FontFile() = default;

    virtual std::string getFamily() const = 0;
    virtual TextFace::Style getStyle() const = 0;
    /// Pixels from the base line; the descent is below 0.
    virtual Int32 getAscent() const = 0;
    virtual Int32 getDescent() const = 0;

    /// False, and nothing changes, for a character without a glyph.
    virtual bool measure(wchar_t character, GlyphPixels& glyph) = 0;
    /// Draws the glyph in its place, which is as large as measured, as bytes from 0 to 255; the picture's rows run from
    /// the bottom up and have that many pixels. Leaves out what FreeType cannot render.
    virtual void draw(wchar_t character, const GlyphRectangle& place, UInt8* picture, UInt32 pictureWidth) = 0;
};

} // namespace osg
