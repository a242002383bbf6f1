#include <OpenSG/detail/GlyphPacking.h>

#include <OpenSG/OSGBaseFunctions.h>

#include <algorithm>

namespace osg {

namespace {

UInt32 smallestSquare(UInt64 area) {
    UInt32 side = 1;
    while (UInt64(side) * side < area && side <= largestTextureExtent) side <<= 1;
    return side;
}

UInt32 chooseWidth(const std::vector<GlyphRectangle>& glyphs, UInt32 gap, UInt32 textureWidth) {
    UInt64 area = 0;
    UInt32 widest = 0;
    for (const GlyphRectangle& glyph : glyphs) {
        area += UInt64(glyph.width + gap) * (glyph.height + gap);
        widest = osgMax(widest, glyph.width);
    }
    const UInt32 wanted = textureWidth > 0 ? textureWidth : smallestSquare(area);
    return osgnextpower2(osgMax(wanted, widest + 2 * gap));
}

bool isTooLarge(const GlyphRectangle& glyph) {
    return glyph.width > largestTextureExtent || glyph.height > largestTextureExtent;
}

/// Fills a row from the glyphs that are left, takes them away from these, and returns the row's height.
UInt32 fillRow(std::vector<GlyphRectangle*>& left, UInt32 y, UInt32 gap, UInt32 textureWidth) {
    UInt32 x = gap, height = 0;
    std::vector<GlyphRectangle*> rest;
    for (GlyphRectangle* glyph : left) {
        if (x + glyph->width + gap > textureWidth) {
            rest.push_back(glyph);
            continue;
        }
        glyph->x = x;
        glyph->y = y;
        x += glyph->width + gap;
        height = osgMax(height, glyph->height);
    }
    left.swap(rest);
    return height;
}

} // namespace

TextureExtent packGlyphs(std::vector<GlyphRectangle>& glyphs, UInt32 gap, UInt32 textureWidth) {
    if (osgMax(gap, textureWidth) > largestTextureExtent || std::any_of(glyphs.begin(), glyphs.end(), isTooLarge))
        return {};
    const UInt32 width = chooseWidth(glyphs, gap, textureWidth);
    std::vector<GlyphRectangle*> left;
    for (GlyphRectangle& glyph : glyphs) left.push_back(&glyph);
    std::stable_sort(left.begin(), left.end(),
                     [](const GlyphRectangle* a, const GlyphRectangle* b) { return a->height < b->height; });
    UInt32 y = gap, top = gap;
    while (!left.empty() && top <= largestTextureExtent) {
        top = y + fillRow(left, y, gap, width);
        y = top + gap;
    }
    const UInt32 height = osgnextpower2(top);
    if (osgMax(width, height) > largestTextureExtent) return {};
    return {width, height};
}

} // namespace osg
