#include <platform/font/FontManager.h>

#include <OpenSG/OSGBlendChunk.h>
#include <OpenSG/OSGMaterialChunk.h>
#include <OpenSG/OSGTextTXFParam.h>
#include <OpenSG/OSGTextureChunk.h>

#include <algorithm>
#include <cmath>

namespace tesk::font {

namespace {

constexpr float smallestSize = 8.0f;
/// Glyphs of this size fill a texture of 4096 by 4096 texels at most.
constexpr float largestSize = 256.0f;

void addRange(std::wstring& characters, wchar_t first, wchar_t last) {
    for (wchar_t character = first; character <= last; ++character) characters.push_back(character);
}

std::wstring labelCharacters() {
    std::wstring characters;
    addRange(characters, L' ', L'~');
    addRange(characters, L'\u00a0', L'\u00ff');
    addRange(characters, L'\u0391', L'\u03c9');
    // Dashes, quotation marks, bullet, ellipsis, per mille and primes.
    characters += L"\u2013\u2014\u2018\u2019\u201c\u201d\u201e\u2022\u2026\u2030\u2032\u2033";
    // Euro, Ohm, arrows, empty set, minus, root, infinity, angle, about, unequal, at most, at least and diameter.
    characters += L"\u20ac\u2126\u2190\u2191\u2192\u2193\u2205\u2212\u221a\u221e\u2220\u2248\u2260\u2264\u2265\u2300";
    return characters;
}

osg::TextTXFParam createParam(float size) {
    // The smallest for NaN, too.
    const float pixels = size > smallestSize ? std::min(size, largestSize) : smallestSize;
    osg::TextTXFParam param;
    param.size = static_cast<osg::UInt32>(std::lround(pixels));
    // Keeps neighbours apart where small text is drawn from a reduced texture.
    param.gap = std::max(param.size / 16, osg::UInt32(1));
    static const std::wstring characters = labelCharacters();
    param.setCharacters(characters);
    return param;
}

osg::TextureChunkPtr createTextureChunk() {
    const osg::TextureChunkPtr chunk = osg::TextureChunk::create();
    const osg::CPEditor edit(chunk);
    chunk->setWrapS(GL_CLAMP);
    chunk->setWrapT(GL_CLAMP);
    chunk->setEnvMode(GL_MODULATE);
    return chunk;
}

osg::BlendChunkPtr createBlendChunk() {
    const osg::BlendChunkPtr chunk = osg::BlendChunk::create();
    const osg::CPEditor edit(chunk);
    chunk->setSrcFactor(GL_SRC_ALPHA);
    chunk->setDestFactor(GL_ONE_MINUS_SRC_ALPHA);
    return chunk;
}

osg::MaterialChunkPtr createMaterialChunk() {
    const osg::MaterialChunkPtr chunk = osg::MaterialChunk::create();
    const osg::CPEditor edit(chunk);
    chunk->setLit(false);
    return chunk;
}

} // namespace

FontManager* FontManager::getInstance() {
    static FontManager manager;
    return &manager;
}

osg::TextTXFFace* FontManager::createTXFFace(const std::string& family, osg::TextFace::Style style, float size) {
    return osg::TextTXFFace::create(family, style, createParam(size));
}

osg::ChunkMaterialPtr FontManager::createTXFMaterial() {
    const osg::ChunkMaterialPtr material = osg::ChunkMaterial::create();
    if (material == osg::NullFC) return material;
    const osg::CPEditor edit(material);
    material->addChunk(createMaterialChunk());
    material->addChunk(createTextureChunk());
    material->addChunk(createBlendChunk());
    return material;
}

void FontManager::updateTXFMaterial(const osg::ChunkMaterialPtr& material, osg::TextTXFFace* face) {
    if (material == osg::NullFC || !face) return;
    const auto chunk = osg::TextureChunkPtr::dcast(material->find(osg::TextureChunk::getClassType()));
    if (chunk == osg::NullFC) return;
    osg::ImagePtr glyphs = face->getTexture();
    const osg::CPEditor edit(chunk, osg::TextureChunk::ImageFieldMask);
    chunk->setImage(glyphs);
}

} // namespace tesk::font
