#include <OpenSG/OSGTextLayoutResult.h>

#include <OpenSG/OSGBaseFunctions.h>

namespace osg {

void TextLayoutResult::clear() {
    indices.clear();
    positions.clear();
    lineBounds.clear();
    textBounds = Vec2f();
}

UInt32 TextLayoutResult::getNumGlyphs() const { return static_cast<UInt32>(osgMin(indices.size(), positions.size())); }

} // namespace osg
