#include <measurement/visualisation/detail/LabelFont.h>

#include <platform/font/FontManager.h>
#include <platform/tkPlatform.h>

#include <OpenSG/OSGTextLayoutParam.h>
#include <OpenSG/OSGTextLayoutResult.h>

namespace tesk::measurement::detail {

namespace {

const float sizeWithoutScaling = 64.0f;

osg::TextLayoutResult layOut(osg::TextTXFFace& face, const std::vector<std::string>& lines) {
    osg::TextLayoutParam layout;
    layout.horizontal = true;
    layout.leftToRight = true;
    layout.topToBottom = true;
    layout.spacing = 1.0f;
    layout.setLength(0.0f);
    layout.maxExtend = 0.0f;
    osg::TextLayoutResult result;
    face.layout(lines, layout, result);
    return result;
}

} // namespace

LabelFont::LabelFont() : size(sizeWithoutScaling * tkPlatform::getDpiScaleY()) {}

LabelFont::~LabelFont() { osg::clearRefP(face); }

void LabelFont::updateFace(const osg::ChunkMaterialPtr& textMaterial) {
    osg::TextTXFFace* newFace = font::FontManager::getInstance()->createTXFFace(family, style, size);
    if (!newFace) return;
    osg::addRefP(newFace);
    osg::subRefP(face);
    face = newFace;
    font::FontManager::updateTXFMaterial(textMaterial, face);
}

osg::Vec2f LabelFont::fill(osg::GeometryPtr geometry, const std::vector<std::string>& lines, float scale,
                           const osg::Vec2f& offset, const osg::Color3f& color) const {
    if (!face) return osg::Vec2f(0.0f, 0.0f);
    const osg::TextLayoutResult text = layOut(*face, lines);
    const osg::CPEditor edit(geometry);
    face->fillGeo(geometry, text, scale, offset, color);
    return text.textBounds;
}

osg::Vec2f LabelFont::addTo(osg::GeometryPtr geometry, const std::vector<std::string>& lines, float scale,
                            const osg::Vec2f& offset, const osg::Color3f& color) const {
    if (!face) return osg::Vec2f(0.0f, 0.0f);
    const osg::TextLayoutResult text = layOut(*face, lines);
    const osg::CPEditor edit(geometry);
    face->addToGeom(geometry, text, scale, offset, color);
    return text.textBounds;
}

} // namespace tesk::measurement::detail
