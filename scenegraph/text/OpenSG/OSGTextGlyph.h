#pragma once

#include <OpenSG/OSGBaseTypes.h>
#include <OpenSG/OSGSystemDef.h>

namespace osg {

/// The measures of one glyph, in layout units: x right, y up, the line is 1 high.
class OSG_SYSTEMLIB_DLLMAPPING TextGlyph {
public:
    typedef Int32 Index;
    enum { INVALID_INDEX = -1 };

    TextGlyph(const TextGlyph&) = delete;
    TextGlyph& operator=(const TextGlyph&) = delete;
    virtual ~TextGlyph() = default;

    Index getGlyphIndex() const { return glyphIndex; }
    /// How far the pen moves on.
    Real32 getHoriAdvance() const { return horiAdvance; }
    virtual Real32 getWidth() const = 0;
    virtual Real32 getHeight() const = 0;
    /// From the pen to the glyph's left.
    virtual Real32 getHoriBearingX() const = 0;
    /// From the base line to the glyph's top.
    virtual Real32 getHoriBearingY() const = 0;

protected:
    TextGlyph() = default;

    Index glyphIndex = INVALID_INDEX;
    Real32 horiAdvance = 0.0f;
};

} // namespace osg
