#pragma once

#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGTextFace.h>
#include <OpenSG/OSGTextTXFParam.h>

#include <map>
#include <memory>

namespace osg {

class FontFile;
class TextTXFGlyph;
struct GlyphPixels;
struct GlyphRectangle;
struct TextureExtent;

/// A face whose glyphs lie in one texture; text is a quad a glyph.
///
/// \code
/// TextTXFFace* face = TextTXFFace::create("SANS");
/// if (!face) return;
/// addRefP(face);
/// TextLayoutResult result;
/// face->layout("Hello", TextLayoutParam(), result);
/// const NodePtr node = face->makeNode(result);
/// ...
/// subRefP(face);
/// \endcode
class OSG_SYSTEMLIB_DLLMAPPING TextTXFFace : public TextFace {
public:
    /// The face of that family and style, made at the first call and then kept by the TextFaceFactory; addRef() it to
    /// keep it longer. Where the family is not installed, the system's substitute for it. "SANS", "SERIF" and
    /// "TYPEWRITER" name kinds of families.
    ///
    /// Null when no font can be opened, for a size of 0, when the glyphs need a texture of more than 8192 texels in
    /// either direction, and before osgInit().
    static TextTXFFace* create(const std::string& family, Style style = STYLE_PLAIN,
                               const TextTXFParam& param = TextTXFParam());

    /// Layout units of a texel.
    Real32 getScale() const { return scale; }
    const TextTXFParam& getParam() const { return param; }
    /// The glyphs as alpha, rows from the bottom up; width and height are powers of two. Belongs to the face.
    ImagePtr getTexture() const { return texture; }

    /// An empty glyph for a character that the face does not have; indices are characters.
    const TextTXFGlyph& getTXFGlyph(TextGlyph::Index glyphIndex) const;
    const TextGlyph& getGlyph(TextGlyph::Index glyphIndex) const override;

    /// Makes the text the geometry's whole content: one primitive of quads, one quad a visible glyph, in the plane
    /// z = 0, with normals and texture coordinates; its corners are `position * scale + offset`.
    ///
    /// The colour is one entry a vertex where the geometry has colours, or had neither positions nor texture
    /// coordinates; the default colour means none. Properties of the classes used are refilled, others replaced.
    void fillGeo(GeometryPtr& geometry, const TextLayoutResult& layoutResult, Real32 scale = 1.0f,
                 Vec2f offset = Vec2f(0, 0), Color3f color = Color3f(-1, -1, -1)) const;
    /// The same as a further primitive of the geometry.
    void addToGeom(GeometryPtr& geometry, const TextLayoutResult& layoutResult, Real32 scale = 1.0f,
                   Vec2f offset = Vec2f(0, 0), Color3f color = Color3f(-1, -1, -1)) const;
    GeometryPtr makeGeo(const TextLayoutResult& layoutResult, Real32 scale = 1.0f, Vec2f offset = Vec2f(0, 0),
                        Color3f color = Color3f(-1, -1, -1)) const;
    NodePtr makeNode(const TextLayoutResult& layoutResult, Real32 scale = 1.0f, Vec2f offset = Vec2f(0, 0),
                     Color3f color = Color3f(-1, -1, -1)) const;

private:
    friend class TextFaceFactory;
    TextTXFFace();
    ~TextTXFFace() override;

    /// A new face without references; null as for create().
    static TextTXFFace* load(const std::string& family, Style style, const TextTXFParam& param);
    /// False when the glyphs fit into no texture, or before osgInit().
    bool makeGlyphs(FontFile& font);
    void addGlyph(wchar_t character, const GlyphPixels& pixels, const GlyphRectangle& place,
                  const TextureExtent& extent);

    Real32 scale = 0.0f;
    TextTXFParam param;
    ImagePtr texture;
    std::map<TextGlyph::Index, std::unique_ptr<TextTXFGlyph>> glyphs;
};

} // namespace osg
