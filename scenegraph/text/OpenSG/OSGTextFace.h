#pragma once

#include <OpenSG/OSGMemoryObject.h>
#include <OpenSG/OSGTextGlyph.h>
#include <OpenSG/OSGVector.h>

#include <string>
#include <vector>

namespace osg {

class TextLayoutParam;
class TextLayoutResult;

/// A font in one style: its measures, and the layout of text in it.
///
/// Layout units: x right, y up, ascent minus descent is 1; the base line of the first line is y = 0. Lines follow each
/// other downwards. Characters that the face does not have are blank and 0 wide; so is a line's end inside a string.
class OSG_SYSTEMLIB_DLLMAPPING TextFace : public MemoryObject {
public:
    enum Style { STYLE_PLAIN, STYLE_BOLD, STYLE_ITALIC, STYLE_BOLDITALIC };

    /// Those of the font found, which may not be those asked for.
    const std::string& getFamily() const { return family; }
    Style getStyle() const { return style; }
    /// From the base line up to the top of a line.
    Real32 getHoriAscent() const { return horiAscent; }
    /// From the base line to the bottom of a line; below 0.
    Real32 getHoriDescent() const { return horiDescent; }

    /// An empty glyph for an index that the face does not have.
    virtual const TextGlyph& getGlyph(TextGlyph::Index glyphIndex) const = 0;

    /// Lays out one line, or several; narrow strings are UTF-8. Replaces the result. Linear in the text's length.
    void layout(const std::string& utf8Text, const TextLayoutParam& param, TextLayoutResult& result) const;
    void layout(const std::wstring& text, const TextLayoutParam& param, TextLayoutResult& result) const;
    void layout(const std::vector<std::string>& utf8Lines, const TextLayoutParam& param,
                TextLayoutResult& result) const;
    void layout(const std::vector<std::wstring>& lines, const TextLayoutParam& param, TextLayoutResult& result) const;

    /// The box of the glyphs of a layout.
    void calculateBoundingBox(const TextLayoutResult& layoutResult, Vec2f& lowerLeft, Vec2f& upperRight) const;

    static void convertUTF8ToUnicode(const std::string& utf8Text, std::wstring& text);

protected:
    TextFace() = default;
    ~TextFace() override;

    std::string family;
    Style style = STYLE_PLAIN;
    Real32 horiAscent = 0.0f;
    Real32 horiDescent = 0.0f;

private:
    /// The first base line of a block of lines of that height.
    Real32 firstBaseLine(const TextLayoutParam& param, Real32 height) const;
    /// Adds a line below those that the result has.
    void addLine(const std::wstring& text, const TextLayoutParam& param, Real32 baseLine,
                 TextLayoutResult& result) const;
};

} // namespace osg
