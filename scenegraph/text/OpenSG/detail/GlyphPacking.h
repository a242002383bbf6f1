#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <vector>

namespace osg {

/// The place of a glyph in a texture, in texels from the lower left.
struct GlyphRectangle {
    UInt32 width = 0;
    UInt32 height = 0;
    UInt32 x = 0;
    UInt32 y = 0;
};

struct TextureExtent {
    UInt32 width = 0;
    UInt32 height = 0;
};

/// Textures have at most this many texels in either direction, which most graphics cards can take.
constexpr UInt32 largestTextureExtent = 8192;

/// Gives every glyph its place, and says how large the texture must be: powers of two.
///
/// Glyphs stand in rows, low ones first; what is left of a row takes the next glyphs that fit. There is a gap between
/// them and at the texture's edges, except at the top. The width is at least the one asked for; 0 makes the texture
/// about square.
///
/// An extent of 0 by 0 when they fit into no texture. Quadratic in the number of glyphs at worst.
TextureExtent packGlyphs(std::vector<GlyphRectangle>& glyphs, UInt32 gap, UInt32 textureWidth);

} // namespace osg
