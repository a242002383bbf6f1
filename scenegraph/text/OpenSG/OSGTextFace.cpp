#include <OpenSG/OSGTextFace.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGTextLayoutParam.h>
#include <OpenSG/OSGTextLayoutResult.h>

#include <limits>

namespace osg {

namespace {

/// Spreads a line's glyphs, from the first one on, so that the line gets the length; a space counts as two gaps.
/// Returns the line's new width. Lines without gaps, and those of spaces alone, stay as they are.
Real32 justifyLine(const std::wstring& text, Vec2f* positions, Real32 width, Real32 length) {
    std::vector<size_t> spaces;
    for (size_t i = 0; i < text.size(); ++i)
        if (text[i] == L' ') spaces.push_back(i);
    // False for a length that is NaN, too.
    if (!(length > 0.0f) || text.size() < 2 || spaces.size() == text.size()) return width;

    const Real32 gap = (length - width) / static_cast<Real32>(text.size() - 1 + spaces.size());
    Real32 shift = 0.0f;
    auto space = spaces.begin();
    for (size_t i = 1; i < text.size(); ++i) {
        const bool isWide = space != spaces.end() && *space <= i;
        if (isWide) ++space;
        shift += isWide ? gap * 2.0f : gap;
        positions[i][0] += shift;
    }
    return width + shift;
}

Real32 alignLine(TextLayoutParam::Alignment alignment, Real32 width) {
    switch (alignment) {
    case TextLayoutParam::ALIGN_MIDDLE:
        return -width / 2.0f;
    case TextLayoutParam::ALIGN_END:
        return -width;
    default:
        return 0.0f;
    }
}

/// A byte's share of a character: its last bits, as many as the mask has.
wchar_t bitsOf(char byte, unsigned mask) { return static_cast<wchar_t>(static_cast<unsigned char>(byte) & mask); }

struct SequenceStart {
    unsigned mask;
    int followers;
};

/// What a sequence's first byte says; bytes that start none stand for themselves.
SequenceStart sequenceStart(unsigned char byte) {
    if ((byte & 0xe0) == 0xc0) return {0x1f, 1};
    if ((byte & 0xf0) == 0xe0) return {0x0f, 2};
    if ((byte & 0xf8) == 0xf0) return {0x07, 3};
    if ((byte & 0xfc) == 0xf8) return {0x03, 4};
    if ((byte & 0xfe) == 0xfc) return {0x01, 5};
    return {0xff, 0};
}

} // namespace

TextFace::~TextFace() = default;

void TextFace::convertUTF8ToUnicode(const std::string& utf8Text, std::wstring& text) {
    text.clear();
    for (size_t i = 0; i < utf8Text.size() && utf8Text[i] != '\0';) {
        const SequenceStart start = sequenceStart(static_cast<unsigned char>(utf8Text[i]));
        wchar_t character = bitsOf(utf8Text[i++], start.mask);
        for (int k = 0; k < start.followers; ++k)
            character = static_cast<wchar_t>(character << 6 | (i < utf8Text.size() ? bitsOf(utf8Text[i++], 0x3f) : 0));
        text.push_back(character);
    }
}

void TextFace::layout(const std::string& utf8Text, const TextLayoutParam& param, TextLayoutResult& result) const {
    std::wstring text;
    convertUTF8ToUnicode(utf8Text, text);
    layout(text, param, result);
}

void TextFace::layout(const std::wstring& text, const TextLayoutParam& param, TextLayoutResult& result) const {
    result.clear();
    const bool isAtBottom = param.minorAlignment == TextLayoutParam::ALIGN_END;
    const Real32 baseLine = isAtBottom ? -horiDescent : firstBaseLine(param, 1.0f);
    addLine(text, param, baseLine, result);
    result.textBounds[1] = 1.0f;
}

void TextFace::layout(const std::vector<std::string>& utf8Lines, const TextLayoutParam& param,
                      TextLayoutResult& result) const {
    std::vector<std::wstring> lines(utf8Lines.size());
    for (size_t i = 0; i < lines.size(); ++i) convertUTF8ToUnicode(utf8Lines[i], lines[i]);
    layout(lines, param, result);
}

void TextFace::layout(const std::vector<std::wstring>& lines, const TextLayoutParam& param,
                      TextLayoutResult& result) const {
    result.clear();
    const Real32 height = (static_cast<Real32>(lines.size()) - 1.0f) * param.spacing + 1.0f;
    const Real32 first = firstBaseLine(param, height);
    for (size_t i = 0; i < lines.size(); ++i)
        addLine(lines[i], param, first - static_cast<Real32>(i) * param.spacing, result);
    result.textBounds[1] = height;
}

Real32 TextFace::firstBaseLine(const TextLayoutParam& param, Real32 height) const {
    switch (param.minorAlignment) {
    case TextLayoutParam::ALIGN_BEGIN:
        return -horiAscent;
    case TextLayoutParam::ALIGN_MIDDLE:
        return height / 2.0f - horiAscent;
    case TextLayoutParam::ALIGN_END:
        return height - horiAscent;
    default:
        return 0.0f;
    }
}

void TextFace::addLine(const std::wstring& text, const TextLayoutParam& param, Real32 baseLine,
                       TextLayoutResult& result) const {
    const size_t first = result.positions.size();
    Real32 width = 0.0f;
    for (const wchar_t character : text) {
        const TextGlyph& glyph = getGlyph(static_cast<TextGlyph::Index>(character));
        result.indices.push_back(glyph.getGlyphIndex());
        result.positions.push_back(Vec2f(width + glyph.getHoriBearingX(), glyph.getHoriBearingY()));
        width += glyph.getHoriAdvance();
    }
    const UInt32 line = static_cast<UInt32>(result.lineBounds.size());
    width = justifyLine(text, result.positions.data() + first, width, param.getLength(line));
    const Vec2f shift(alignLine(param.majorAlignment, width), baseLine);
    for (size_t i = first; i < result.positions.size(); ++i) result.positions[i] += shift;
    result.lineBounds.push_back(Vec2f(width, 1.0f));
    result.textBounds[0] = osgMax(result.textBounds[0], width);
}

void TextFace::calculateBoundingBox(const TextLayoutResult& layoutResult, Vec2f& lowerLeft, Vec2f& upperRight) const {
    constexpr Real32 largest = std::numeric_limits<Real32>::max();
    lowerLeft = Vec2f(largest, largest);
    upperRight = Vec2f(-largest, -largest);
    for (UInt32 i = 0; i < layoutResult.getNumGlyphs(); ++i) {
        const TextGlyph& glyph = getGlyph(layoutResult.indices[i]);
        const Real32 width = glyph.getWidth(), height = glyph.getHeight();
        if (width <= 0.0f || height <= 0.0f) continue;
        const Vec2f& corner = layoutResult.positions[i];
        lowerLeft = Vec2f(osgMin(lowerLeft[0], corner[0]), osgMin(lowerLeft[1], corner[1] - height));
        upperRight = Vec2f(osgMax(upperRight[0], corner[0] + width), osgMax(upperRight[1], corner[1]));
    }
}

} // namespace osg
