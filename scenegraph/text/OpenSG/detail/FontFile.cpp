#include <OpenSG/detail/FontFile.h>

#include <OpenSG/OSGBaseFunctions.h>

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <algorithm>

namespace osg {

namespace {

struct PatternDestroyer {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, PatternDestroyer>;

struct LibraryCloser {
    void operator()(FT_Library library) const { FT_Done_FreeType(library); }
};
using Library = std::unique_ptr<FT_LibraryRec_, LibraryCloser>;

struct FaceCloser {
    void operator()(FT_Face face) const { FT_Done_Face(face); }
};
using Face = std::unique_ptr<FT_FaceRec_, FaceCloser>;

std::string toFontconfigFamily(const std::string& family) {
    if (family == "SANS") return "sans";
    if (family == "SERIF") return "serif";
    if (family == "TYPEWRITER") return "monospace";
    return family;
}

Pattern findFont(const std::string& family, TextFace::Style style) {
    const bool bold = style == TextFace::STYLE_BOLD || style == TextFace::STYLE_BOLDITALIC;
    const bool italic = style == TextFace::STYLE_ITALIC || style == TextFace::STYLE_BOLDITALIC;
    const Pattern wanted(FcPatternCreate());
    if (!wanted) return nullptr;
    const std::string name = toFontconfigFamily(family);
    FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(name.c_str()));
    FcPatternAddInteger(wanted.get(), FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_MEDIUM);
    FcPatternAddInteger(wanted.get(), FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
    FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultNoMatch;
    return Pattern(FcFontMatch(nullptr, wanted.get(), &result));
}

/// FreeType counts in 64ths of a pixel.
constexpr FT_Pos floorToPixel(FT_Pos position) { return position >> 6; }
constexpr FT_Pos ceilToPixel(FT_Pos position) { return (position + 63) >> 6; }

class FreeTypeFont final : public FontFile {
public:
    FreeTypeFont(Library openedLibrary, Face openedFace)
        : library(std::move(openedLibrary)), face(std::move(openedFace)) {}

    std::string getFamily() const override { return face->family_name ? face->family_name : ""; }
    TextFace::Style getStyle() const override {
        const bool bold = face->style_flags & FT_STYLE_FLAG_BOLD;
        if (face->style_flags & FT_STYLE_FLAG_ITALIC) return bold ? TextFace::STYLE_BOLDITALIC : TextFace::STYLE_ITALIC;
        return bold ? TextFace::STYLE_BOLD : TextFace::STYLE_PLAIN;
    }
    Int32 getAscent() const override { return static_cast<Int32>(ceilToPixel(face->size->metrics.ascender)); }
    Int32 getDescent() const override { return static_cast<Int32>(floorToPixel(face->size->metrics.descender)); }

    bool measure(wchar_t character, GlyphPixels& glyph) override;
    void draw(wchar_t character, const GlyphRectangle& place, UInt8* picture, UInt32 pictureWidth) override;

private:
    /// The glyph that was loaded; null without a glyph for the character.
    FT_GlyphSlot load(wchar_t character, FT_Int32 flags) const;

    // Closed after the face.
    Library library;
    Face face;
};

FT_GlyphSlot FreeTypeFont::load(wchar_t character, FT_Int32 flags) const {
    const FT_UInt index = FT_Get_Char_Index(face.get(), static_cast<FT_ULong>(character));
    if (index == 0 || FT_Load_Glyph(face.get(), index, flags | FT_LOAD_NO_BITMAP) != 0) return nullptr;
    return face->glyph;
}

bool FreeTypeFont::measure(wchar_t character, GlyphPixels& glyph) {
    const FT_GlyphSlot slot = load(character, FT_LOAD_DEFAULT);
    if (!slot) return false;
    FT_BBox box{0, 0, 0, 0};
    if (slot->format == FT_GLYPH_FORMAT_OUTLINE) FT_Outline_Get_CBox(&slot->outline, &box);
    glyph.left = static_cast<Int32>(floorToPixel(box.xMin));
    glyph.top = static_cast<Int32>(ceilToPixel(box.yMax));
    glyph.width = static_cast<UInt32>(ceilToPixel(box.xMax) - floorToPixel(box.xMin));
    glyph.height = static_cast<UInt32>(ceilToPixel(box.yMax) - floorToPixel(box.yMin));
    glyph.advance = static_cast<Int32>(floorToPixel(slot->advance.x));
    return true;
}

void FreeTypeFont::draw(wchar_t character, const GlyphRectangle& place, UInt8* picture, UInt32 pictureWidth) {
    const FT_GlyphSlot slot = load(character, FT_LOAD_RENDER);
    if (!slot || slot->format != FT_GLYPH_FORMAT_BITMAP || slot->bitmap.pixel_mode != FT_PIXEL_MODE_GRAY) return;
    const UInt32 width = osgMin(place.width, static_cast<UInt32>(slot->bitmap.width));
    const UInt32 height = osgMin(place.height, static_cast<UInt32>(slot->bitmap.rows));
    for (UInt32 row = 0; row < height; ++row) {
        const UInt8* source = slot->bitmap.buffer + static_cast<std::ptrdiff_t>(row) * slot->bitmap.pitch;
        const size_t y = place.y + place.height - 1 - row;
        std::copy_n(source, width, picture + y * pictureWidth + place.x);
    }
}

} // namespace

std::unique_ptr<FontFile> FontFile::open(const std::string& family, TextFace::Style style, UInt32 pixelSize) {
    const Pattern found = findFont(family, style);
    FcChar8* path = nullptr;
    int index = 0;
    if (!found || FcPatternGetString(found.get(), FC_FILE, 0, &path) != FcResultMatch) return nullptr;
    FcPatternGetInteger(found.get(), FC_INDEX, 0, &index);

    FT_Library rawLibrary = nullptr;
    if (FT_Init_FreeType(&rawLibrary) != 0) return nullptr;
    Library library(rawLibrary);
    FT_Face rawFace = nullptr;
    if (FT_New_Face(rawLibrary, reinterpret_cast<const char*>(path), index, &rawFace) != 0) return nullptr;
    Face face(rawFace);
    if (FT_Set_Pixel_Sizes(rawFace, 0, pixelSize) != 0) return nullptr;
    return std::make_unique<FreeTypeFont>(std::move(library), std::move(face));
}

} // namespace osg
