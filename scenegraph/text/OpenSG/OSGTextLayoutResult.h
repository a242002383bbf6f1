#pragma once

#include <OpenSG/OSGTextGlyph.h>
#include <OpenSG/OSGVector.h>

#include <vector>

namespace osg {

/// Where the glyphs of a text lie, in layout units: x right, y up, a line is 1 high.
class OSG_SYSTEMLIB_DLLMAPPING TextLayoutResult {
public:
    void clear();

    std::vector<TextGlyph::Index> indices;
    /// The top left corner of each glyph.
    std::vector<Vec2f> positions;
    UInt32 getNumGlyphs() const;

    /// The way of the pen and the height of each line.
    std::vector<Vec2f> lineBounds;
    Vec2f textBounds;
};

} // namespace osg
