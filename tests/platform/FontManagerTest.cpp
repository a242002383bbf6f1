#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGBlendChunk.h>
#include <OpenSG/OSGMaterialChunk.h>
#include <OpenSG/OSGTextTXFGlyph.h>
#include <OpenSG/OSGTextureChunk.h>
#include <platform/font/FontManager.h>

#include <gtest/gtest.h>

using tesk::font::FontManager;

TEST(FontManager, KeepsFacesWithTheCharactersOfLabels) {
    osg::osgInit(0, nullptr);
    const auto create = [](float size) {
        return FontManager::getInstance()->createTXFFace("DejaVu Sans", osg::TextFace::STYLE_BOLD, size);
    };
    osg::TextTXFFace* face = create(64.0f);
    if (!face) GTEST_SKIP() << "no fonts";
    EXPECT_EQ(create(64.0f), face);
    const std::pair<float, osg::UInt32> sizes[] = {{64, 64}, {9.6f, 10}, {0, 8}, {std::nanf(""), 8}, {1e30f, 256}};
    for (const auto& [wanted, size] : sizes) EXPECT_EQ(create(wanted)->getParam().size, size) << wanted;
    for (const wchar_t character : std::wstring(L"09azAZ~\u00b5\u00b0\u00b2\u00b3\u00d8\u00e4\u0394\u03c0\u2013\u2300"))
        EXPECT_EQ(face->getTXFGlyph(character).getGlyphIndex(), character);
}

TEST(FontManager, MakesMaterialsWithExplicitChunks) {
    osg::osgInit(0, nullptr);
    const osg::RefPtr<osg::ChunkMaterialPtr> material(FontManager::createTXFMaterial());
    const auto texture = osg::TextureChunkPtr::dcast(material->find(osg::TextureChunk::getClassType()));
    ASSERT_TRUE(texture != osg::NullFC);
    EXPECT_TRUE(material->find(osg::MaterialChunk::getClassType()) != osg::NullFC);
    EXPECT_TRUE(material->find(osg::BlendChunk::getClassType()) != osg::NullFC);

    osg::TextTXFFace* face = FontManager::getInstance()->createTXFFace("SANS", osg::TextFace::STYLE_PLAIN, 20.0f);
    FontManager::updateTXFMaterial(osg::ChunkMaterialPtr(), face);
    FontManager::updateTXFMaterial(material, nullptr);
    EXPECT_TRUE(texture->getImage() == osg::NullFC);
    FontManager::updateTXFMaterial(material, face);
    EXPECT_TRUE(!face || texture->getImage() == face->getTexture());
}
