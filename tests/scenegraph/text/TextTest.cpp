#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGTextFaceFactory.h>
#include <OpenSG/OSGTextLayoutParam.h>
#include <OpenSG/OSGTextLayoutResult.h>
#include <OpenSG/OSGTextTXFFace.h>
#include <OpenSG/OSGTextTXFGlyph.h>
#include <support/Random.h>

#include <gtest/gtest.h>

namespace {

using osg::TextLayoutParam;

osg::TextTXFParam paramOf(osg::UInt32 size, osg::UInt32 gap = 1, osg::UInt32 textureWidth = 0) {
    osg::TextTXFParam param;
    param.size = size;
    param.gap = gap;
    param.textureWidth = textureWidth;
    return param;
}

osg::TextTXFFace* faceOf(const osg::TextTXFParam& param) {
    osg::osgInit(0, nullptr);
    return osg::TextTXFFace::create("DejaVu Sans", osg::TextFace::STYLE_PLAIN, param);
}

/// 54 pixels high, so that layout units are easily told in pixels.
osg::TextTXFFace* defaultFace() { return faceOf({}); }

template <class Text>
osg::TextLayoutResult layoutOf(const Text& text, const TextLayoutParam& param = {}, osg::TextTXFFace* face = nullptr) {
    osg::TextLayoutResult result;
    (face ? face : defaultFace())->layout(text, param, result);
    return result;
}

TEST(TextTXFFace, HasTheFontsMeasures) {
    const struct {
        osg::UInt32 size;
        int height, ascent, width, letter, space, textureWidth;
    } rows[] = {
        {46, 54, 43, 102, 31, 15, 512},
        {64, 76, 60, 143, 44, 20, 512},
        {128, 150, 119, 284, 88, 41, 1024},
    };
    for (const auto& row : rows) {
        osg::TextTXFFace* face = faceOf(paramOf(row.size));
        EXPECT_EQ(face->getFamily(), "DejaVu Sans");
        const float pixel = 1.0f / static_cast<float>(row.height);
        EXPECT_EQ(face->getScale(), pixel);
        EXPECT_EQ(face->getHoriAscent(), pixel * static_cast<float>(row.ascent));
        EXPECT_FLOAT_EQ(layoutOf(std::string("12.3"), {}, face).textBounds[0], pixel * static_cast<float>(row.width));
        EXPECT_EQ(face->getTXFGlyph('A').getHoriAdvance(), pixel * static_cast<float>(row.letter));
        EXPECT_EQ(face->getTXFGlyph(' ').getHoriAdvance(), pixel * static_cast<float>(row.space));
        EXPECT_EQ(face->getTexture()->getWidth(), row.textureWidth);
    }
}

TEST(TextTXFFace, PlacesGlyphsApartInItsTexture) {
    for (const osg::UInt32 textureWidth : {0u, 100u, 300u}) {
        const osg::TextTXFParam param = paramOf(46, 3, textureWidth);
        const osg::TextTXFFace* face = faceOf(param);
        const osg::ImagePtr texture = face->getTexture();
        const auto width = static_cast<osg::UInt32>(texture->getWidth());
        std::vector<int> owners(texture->getSize(), 0);
        for (const wchar_t character : param.getCharacters()) {
            const osg::TextTXFGlyph& glyph = face->getTXFGlyph(character);
            // A gap on the left and below is one on the right and above, of another glyph.
            for (osg::UInt32 y = glyph.getY() - param.gap; y < glyph.getY() + glyph.getPixmapHeight(); ++y)
                for (osg::UInt32 x = glyph.getX() - param.gap; x < glyph.getX() + glyph.getPixmapWidth(); ++x) {
                    const bool isInGap = x < glyph.getX() || y < glyph.getY();
                    int& owner = owners.at(size_t(y) * width + x);
                    EXPECT_TRUE(owner == 0 || (isInGap && owner == -1)) << "character " << int(character);
                    owner = isInGap ? -1 : character;
                }
        }
        for (size_t i = 0; i < owners.size(); ++i)
            ASSERT_TRUE(owners[i] > 0 || texture->getData()[i] == 0) << "texel " << i;
    }
    // The dot of an i is on top, and rows run from the bottom up.
    const osg::TextTXFGlyph& letter = defaultFace()->getTXFGlyph('i');
    const osg::UInt8* middle = defaultFace()->getTexture()->getData() + letter.getY() * 512 + letter.getX() + 2;
    EXPECT_EQ(middle[15 * 512], 255);
    EXPECT_EQ(middle[28 * 512], 0);
}

TEST(TextFace, AlignsTheBlockOfLines) {
    const float ascent = 43.0f / 54.0f;
    const struct {
        TextLayoutParam::Alignment along, across;
        float spacing, left, baseLine;
    } rows[] = {
        {TextLayoutParam::ALIGN_FIRST, TextLayoutParam::ALIGN_FIRST, 1.0f, 0, 0},
        {TextLayoutParam::ALIGN_BEGIN, TextLayoutParam::ALIGN_BEGIN, 1.5f, 0, -ascent},
        {TextLayoutParam::ALIGN_MIDDLE, TextLayoutParam::ALIGN_MIDDLE, 1.0f, -0.5f, 1.5f - ascent},
        {TextLayoutParam::ALIGN_END, TextLayoutParam::ALIGN_END, 1.5f, -1, 4 - ascent},
    };
    const std::vector<std::string> lines{"AA", "A", "12.3"};
    for (const auto& row : rows) {
        TextLayoutParam param;
        param.majorAlignment = row.along;
        param.minorAlignment = row.across;
        param.spacing = row.spacing;
        const osg::TextLayoutResult result = layoutOf(lines, param);
        ASSERT_EQ(result.lineBounds.size(), lines.size());
        EXPECT_EQ(result.textBounds, osg::Vec2f(102.0f / 54.0f, 1 + 2 * row.spacing));
        // The first glyph of the first line and the only one of the second.
        for (const int i : {0, 2}) {
            const float line = i == 0 ? 0.0f : 1.0f, width = (2.0f - line) * 31.0f / 54.0f;
            EXPECT_NEAR(result.positions[i][0], row.left * width, 1e-6f);
            EXPECT_NEAR(result.positions[i][1], row.baseLine + 34.0f / 54.0f - line * row.spacing, 1e-6f);
        }
    }
    EXPECT_EQ(layoutOf(std::vector<std::string>{}).textBounds, osg::Vec2f(0, 0));
    EXPECT_EQ(layoutOf(std::string()).textBounds, osg::Vec2f(0, 1));
}

TEST(TextFace, JustifiesLinesAndWidensSpacesTwice) {
    const struct {
        const char* text;
        float length;
        std::vector<float> gaps;
    } rows[] = {
        {"abc", 10, {0, 1, 2}},    {"a bc", 10, {0, 2, 3, 4}}, {" ab", 0.25f, {0, 2, 3}},
        {"ab  ", 9, {0, 1, 3, 5}}, {"a\nb", 9, {0, 1, 2}},     {"x", 9, {0}},
        {"   ", 9, {0, 0, 0}},     {"ab", -1, {0, 0}},         {"ab", std::nanf(""), {0, 0}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        TextLayoutParam param;
        const osg::TextLayoutResult natural = layoutOf(std::string(row.text), param);
        param.setLength(row.length);
        const osg::TextLayoutResult result = layoutOf(std::string(row.text), param);
        const float stretch = row.gaps.back() > 0 ? row.length - natural.textBounds[0] : 0.0f;
        EXPECT_NEAR(result.textBounds[0], natural.textBounds[0] + stretch, 1e-5f);
        for (size_t i = 0; i < row.gaps.size(); ++i) {
            const float share = stretch == 0.0f ? 0.0f : row.gaps[i] / row.gaps.back();
            EXPECT_NEAR(result.positions[i][0] - natural.positions[i][0], share * stretch, 1e-5f) << "glyph " << i;
        }
    }
}

TEST(TextFace, ReadsUtf8AndLetsOtherBytesStandForThemselves) {
    const std::pair<std::string, std::wstring> rows[] = {
        {"a\xc2\xb5\xce\x94\xe2\x80\x93\xf0\x9f\x98\x80", L"a\u00b5\u0394\u2013\U0001f600"},
        {"x\xff\xb5y", L"x\u00ff\u00b5y"},
        {"ab\xc3", L"ab\u00c0"},
        {"\xe2\x82", L"\u2080"},
        {std::string("a\0b", 3), L"a"},
    };
    for (const auto& [utf8, expected] : rows) {
        std::wstring text = L"old";
        osg::TextFace::convertUTF8ToUnicode(utf8, text);
        EXPECT_EQ(text, expected) << utf8;
    }
}

TEST(TextTXFFace, LacksCharactersButTriesTheOtherCase) {
    osg::TextTXFParam param;
    param.setCharacters(std::string("zAA\xc3\x89"));
    EXPECT_EQ(param.getCharacters(), L"Az\u00c9");
    osg::TextTXFFace* face = faceOf(param);
    const osg::TextLayoutResult result = layoutOf(std::wstring(L"aZ\u00e9\n"), {}, face);
    EXPECT_EQ(result.indices, (std::vector<osg::TextGlyph::Index>{'A', 'z', -1, -1}));
    EXPECT_EQ(result.textBounds[0], face->getTXFGlyph('A').getHoriAdvance() + face->getTXFGlyph('z').getHoriAdvance());
}

TEST(TextTXFFace, FillsGeometriesWithQuadsAndRefillsTheirProperties) {
    osg::TextTXFFace* face = defaultFace();
    const osg::NodeRefPtr node(face->makeNode(layoutOf(std::string("A 1")), 2.0f, osg::Vec2f(3, 4)));
    osg::GeometryPtr geometry = osg::GeometryPtr::dcast(node->getCore());
    ASSERT_EQ(geometry->getLengths()->size(), 1u);
    EXPECT_EQ(geometry->getLengths()->getValue(0), 8u);
    const float right = 3 + 2 * 32.0f / 54.0f, top = 4 + 2 * 34.0f / 54.0f;
    const osg::Pnt3f corners[] = {{3, 4, 0}, {right, 4, 0}, {right, top, 0}, {3, top, 0}};
    const osg::TextTXFGlyph& letter = face->getTXFGlyph('A');
    for (osg::UInt32 i = 0; i < 4; ++i) {
        EXPECT_EQ(geometry->getPositions()->getValue(i), corners[i]);
        const auto edge = i < 2 ? osg::TextTXFGlyph::COORD_BOTTOM : osg::TextTXFGlyph::COORD_TOP;
        EXPECT_EQ(geometry->getTexCoords()->getValue(i)[1], letter.getTexCoord(edge));
    }

    const osg::GeoPositionsPtr positions = geometry->getPositions();
    geometry->setIndices(osg::GeoIndicesUI32::create());
    osg::Pnt3f low, high;
    node->getVolume(true).getBounds(low, high);
    face->fillGeo(geometry, layoutOf(std::string("A")));
    EXPECT_EQ(geometry->getPositions(), positions);
    EXPECT_EQ(geometry->getIndices(), osg::NullFC);
    node->getVolume(true).getBounds(low, high);
    EXPECT_EQ(high, osg::Pnt3f(32.0f / 54.0f, 34.0f / 54.0f, 0)) << "the volume follows a refill";
    face->addToGeom(geometry, layoutOf(std::string("  ")));
    EXPECT_EQ(geometry->getLengths()->size(), 2u);
    EXPECT_EQ(positions->size(), 4u);
}

TEST(TextTXFFace, ColoursOnlyWhatWasColouredFromTheStart) {
    osg::TextTXFFace* face = defaultFace();
    const osg::TextLayoutResult text = layoutOf(std::string("1"));
    osg::GeometryPtr plain = face->makeGeo(text), coloured = face->makeGeo(text, 1.0f, {}, {1, 0, 0});
    const osg::GeometryRefPtr heldPlain(plain), heldColoured(coloured);
    face->fillGeo(plain, text, 1.0f, {}, {0, 1, 0});
    EXPECT_EQ(plain->getColors(), osg::NullFC);
    const osg::GeoColorsPtr colors = coloured->getColors();
    face->fillGeo(coloured, text, 1.0f, {}, {0, 1, 0});
    face->addToGeom(coloured, text);
    ASSERT_EQ(coloured->getColors(), colors);
    ASSERT_EQ(colors->size(), 8u);
    EXPECT_EQ(colors->getValue(3), osg::Color3f(0, 1, 0));
    EXPECT_EQ(colors->getValue(4), osg::Color3f(-1, -1, -1));
}

TEST(TextFaceFactory, KeepsFacesUntilTheSystemEnds) {
    osg::TextTXFFace* face = faceOf(paramOf(20));
    EXPECT_EQ(face, faceOf(paramOf(20)));
    EXPECT_EQ(face->getRefCount(), 1);
    osg::addRefP(face);
    osg::osgExit();
    EXPECT_EQ(face->getRefCount(), 1);
    EXPECT_FALSE(osg::TextTXFFace::create("DejaVu Sans", osg::TextFace::STYLE_PLAIN, paramOf(22)));
    osg::osgInit(0, nullptr);
    EXPECT_NE(face, faceOf(paramOf(20)));
    osg::clearRefP(face);
}

TEST(TextTXFFace, SurvivesAnyParametersAndAnyText) {
    constexpr osg::UInt32 huge = 0xffffffff;
    const struct {
        osg::UInt32 size, gap, textureWidth;
        const char* characters;
        bool exists;
    } rows[] = {
        {0, 1, 0, "a", false},        {huge, 1, 0, "a", false},  {9000, 1, 0, "a", false},
        {6000, 1, 0, "abcde", false}, {46, huge, 0, "a", false}, {46, 1, huge, "a", false},
        {46, 4000, 0, "abc", false},  {46, 1, 1, "a", true},     {46, 1, 0, "", true},
        {46, 0, 0, "\x01\xff", true},
    };
    for (const auto& row : rows) {
        osg::TextTXFParam param = paramOf(row.size, row.gap, row.textureWidth);
        param.setCharacters(std::string(row.characters));
        EXPECT_EQ(faceOf(param) != nullptr, row.exists) << row.size << ' ' << row.gap << ' ' << row.textureWidth;
    }
    tesk::test::Random random(3);
    std::string bytes;
    for (int i = 0; i < 1000000; ++i) bytes += static_cast<char>(1 + random.below(255));
    const osg::TextLayoutResult result = layoutOf(bytes);
    const osg::GeometryRefPtr geometry(defaultFace()->makeGeo(result));
    EXPECT_EQ(geometry->getPositions()->size(), geometry->getLengths()->getValue(0));
}

} // namespace
