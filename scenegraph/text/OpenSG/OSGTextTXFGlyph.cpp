#include <OpenSG/OSGTextTXFGlyph.h>

namespace osg {

TextTXFGlyph::~TextTXFGlyph() = default;

void TextTXFGlyph::calculateCoordinates(UInt32 textureWidth, UInt32 textureHeight) {
    const Real32 columns = static_cast<Real32>(textureWidth), rows = static_cast<Real32>(textureHeight);
    texCoord[COORD_LEFT] = static_cast<Real32>(x) / columns;
    texCoord[COORD_TOP] = static_cast<Real32>(y + height) / rows;
    texCoord[COORD_RIGHT] = static_cast<Real32>(x + width) / columns;
    texCoord[COORD_BOTTOM] = static_cast<Real32>(y) / rows;
}

} // namespace osg
