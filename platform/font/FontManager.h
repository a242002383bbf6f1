#pragma once

#include <platform/Export.h>

#include <OpenSG/OSGChunkMaterial.h>
#include <OpenSG/OSGTextFace.h>
#include <OpenSG/OSGTextTXFFace.h>

#include <string>

namespace tesk::font {

/// The fonts of labels, and the materials that text is drawn in.
///
/// \code
/// osg::TextTXFFace* face = FontManager::getInstance()->createTXFFace("Arial", osg::TextFace::STYLE_PLAIN, 64.0f);
/// if (!face) return;
/// face->addRef();
/// const osg::ChunkMaterialPtr material = FontManager::createTXFMaterial();
/// FontManager::updateTXFMaterial(material, face);
/// \endcode
class TESK_PLATFORM_EXPORT FontManager {
public:
    static FontManager* getInstance();

    /// The face of that family and style with glyphs of `size` pixels, from 8 to 256; a text's extent hardly depends
    /// on it. A second call with the same values gives the same face, at the cost of a comparison.
    ///
    /// Has the characters of labels: printable ASCII and Latin-1, Greek letters, and signs such as the minus or the
    /// diameter. The system's substitute where the family is not installed; null without any font.
    ///
    /// The face belongs to the scene graph's cache of faces, which osgExit() clears: addRef() what is kept, and
    /// subRef() it when done, before or after that. Call between osgInit() and osgExit().
    osg::TextTXFFace* createTXFFace(const std::string& family, osg::TextFace::Style style, float size);

    /// A new material for text: a texture chunk without a texture, a blend chunk and an unlit material chunk, which
    /// `find(X::getClassType())` finds. Its diffuse colour is that of text without vertex colours. Null before
    /// osgInit().
    static osg::ChunkMaterialPtr createTXFMaterial();

    /// Draws the material's text with this face's glyphs; the material keeps the glyphs, not the face. Nothing happens
    /// when either is null, or for a material without texture chunk.
    static void updateTXFMaterial(const osg::ChunkMaterialPtr& material, osg::TextTXFFace* face);

private:
    FontManager() = default;
};

} // namespace tesk::font
