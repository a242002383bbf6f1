#pragma once

#include <OpenSG/OSGTextGlyph.h>

namespace osg {

/// A glyph that lies in the texture of a TextTXFFace.
class OSG_SYSTEMLIB_DLLMAPPING TextTXFGlyph final : public TextGlyph {
public:
    enum CoordIndex { COORD_LEFT = 0, COORD_TOP = 1, COORD_RIGHT = 2, COORD_BOTTOM = 3 };

    ~TextTXFGlyph() override;

    Real32 getWidth() const override { return scale * static_cast<Real32>(width); }
    Real32 getHeight() const override { return scale * static_cast<Real32>(height); }
    Real32 getHoriBearingX() const override { return scale * static_cast<Real32>(horiBearingX); }
    Real32 getHoriBearingY() const override { return scale * static_cast<Real32>(horiBearingY); }

    /// The glyph's first column and lowest row in the texture, in texels from its lower left.
    UInt32 getX() const { return x; }
    UInt32 getY() const { return y; }
    UInt32 getPixmapWidth() const { return width; }
    UInt32 getPixmapHeight() const { return height; }
    Int32 getPixmapHoriBearingX() const { return horiBearingX; }
    Int32 getPixmapHoriBearingY() const { return horiBearingY; }
    /// Layout units of a texel.
    Real32 getScale() const { return scale; }
    /// An edge of the glyph in the texture, by CoordIndex; the texture reaches from 0 to 1.
    Real32 getTexCoord(UInt32 edge) const { return texCoord[edge]; }

private:
    friend class TextTXFFace;
    TextTXFGlyph() = default;

    void calculateCoordinates(UInt32 textureWidth, UInt32 textureHeight);

    UInt32 width = 0;
    UInt32 height = 0;
    Int32 horiBearingX = 0;
    Int32 horiBearingY = 0;
    UInt32 x = 0;
    UInt32 y = 0;
    Real32 scale = 1.0f;
    Real32 texCoord[4] = {};
};

} // namespace osg
