#include <OpenSG/OSGTextTXFFace.h>

#include <OpenSG/OSGNodePtr.h>
#include <OpenSG/OSGTextFaceFactory.h>
#include <OpenSG/OSGTextLayoutResult.h>
#include <OpenSG/OSGTextTXFGlyph.h>
#include <OpenSG/detail/FontFile.h>
#include <OpenSG/detail/GlyphPacking.h>

namespace osg {

namespace {

constexpr Color3f noColor(-1, -1, -1);

/// The property in the field if it is of the class, otherwise a new one in its place; null after osgExit().
template <class Property, class AbstractPtr>
typename Property::Ptr acquire(Geometry& geometry, const AbstractPtr& field,
                               void (Geometry::*set)(const AbstractPtr&)) {
    typename Property::Ptr property = Property::Ptr::dcast(field);
    if (property != NullFC) return property;
    property = Property::create();
    if (property != NullFC) (geometry.*set)(property);
    return property;
}

/// The letter of the Latin alphabet in the other case, whatever the locale; other characters stay.
TextGlyph::Index otherCase(TextGlyph::Index character) {
    if (character >= 'a' && character <= 'z') return character - 'a' + 'A';
    if (character >= 'A' && character <= 'Z') return character - 'A' + 'a';
    return character;
}

/// What text consists of in a geometry.
struct TextProperties {
    GeoPTypesUI8Ptr types;
    GeoPLengthsUI32Ptr lengths;
    GeoPositions3fPtr positions;
    GeoNormals3fPtr normals;
    GeoTexCoords2fPtr texCoords;
    /// Null when the text has no colours of its own.
    GeoColors3fPtr colors;

    TextProperties(Geometry& geometry, const Color3f& color) {
        const bool isNew = GeoPositions3fPtr::dcast(geometry.getPositions()) == NullFC &&
                           GeoTexCoords2fPtr::dcast(geometry.getTexCoords()) == NullFC;
        types = acquire<GeoPTypesUI8>(geometry, geometry.getTypes(), &Geometry::setTypes);
        lengths = acquire<GeoPLengthsUI32>(geometry, geometry.getLengths(), &Geometry::setLengths);
        positions = acquire<GeoPositions3f>(geometry, geometry.getPositions(), &Geometry::setPositions);
        normals = acquire<GeoNormals3f>(geometry, geometry.getNormals(), &Geometry::setNormals);
        texCoords = acquire<GeoTexCoords2f>(geometry, geometry.getTexCoords(), &Geometry::setTexCoords);
        if (isNew && color != noColor)
            colors = acquire<GeoColors3f>(geometry, geometry.getColors(), &Geometry::setColors);
        else
            colors = GeoColors3fPtr::dcast(geometry.getColors());
    }

    template <class Operation> void forEach(Operation operation) const {
        operation(types);
        operation(lengths);
        operation(positions);
        operation(normals);
        operation(texCoords);
        if (colors != NullFC) operation(colors);
    }

    bool isComplete() const {
        bool complete = true;
        forEach([&](const auto& property) { complete = complete && property != NullFC; });
        return complete;
    }

    void addQuad(const TextTXFGlyph& glyph, const Vec2f& lowerLeft, const Vec2f& upperRight,
                 const Color3f& color) const;
};

void TextProperties::addQuad(const TextTXFGlyph& glyph, const Vec2f& lowerLeft, const Vec2f& upperRight,
                             const Color3f& color) const {
    const Real32 xs[] = {lowerLeft[0], upperRight[0]}, ys[] = {lowerLeft[1], upperRight[1]};
    const Real32 us[] = {glyph.getTexCoord(TextTXFGlyph::COORD_LEFT), glyph.getTexCoord(TextTXFGlyph::COORD_RIGHT)};
    const Real32 vs[] = {glyph.getTexCoord(TextTXFGlyph::COORD_BOTTOM), glyph.getTexCoord(TextTXFGlyph::COORD_TOP)};
    constexpr struct { int column, row; } corners[] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    for (const auto& corner : corners) {
        positions->getField().push_back(Pnt3f(xs[corner.column], ys[corner.row], 0.0f));
        texCoords->getField().push_back(Vec2f(us[corner.column], vs[corner.row]));
        normals->getField().push_back(Vec3f(0.0f, 0.0f, 1.0f));
        if (colors != NullFC) colors->getField().push_back(color);
    }
}

} // namespace

TextTXFFace::TextTXFFace() = default;

TextTXFFace::~TextTXFFace() { subRefCP(texture); }

TextTXFFace* TextTXFFace::create(const std::string& family, Style style, const TextTXFParam& param) {
    return TextFaceFactory::the().createTXFFace(family, style, param);
}

TextTXFFace* TextTXFFace::load(const std::string& family, Style style, const TextTXFParam& param) {
    if (param.size == 0 || param.size > largestTextureExtent) return nullptr;
    const auto font = FontFile::open(family, style, param.size);
    if (!font || font->getAscent() <= font->getDescent()) return nullptr;
    auto* face = new TextTXFFace;
    face->family = font->getFamily();
    face->style = font->getStyle();
    face->param = param;
    face->scale = 1.0f / static_cast<Real32>(font->getAscent() - font->getDescent());
    face->horiAscent = face->scale * static_cast<Real32>(font->getAscent());
    face->horiDescent = face->scale * static_cast<Real32>(font->getDescent());
    if (face->makeGlyphs(*font)) return face;
    delete face;
    return nullptr;
}

bool TextTXFFace::makeGlyphs(FontFile& font) {
    std::vector<wchar_t> characters;
    std::vector<GlyphPixels> pixels;
    std::vector<GlyphRectangle> places;
    for (const wchar_t character : param.getCharacters()) {
        GlyphPixels glyph;
        if (!font.measure(character, glyph)) continue;
        characters.push_back(character);
        pixels.push_back(glyph);
        places.push_back({glyph.width, glyph.height, 0, 0});
    }
    const TextureExtent extent = packGlyphs(places, param.gap, param.textureWidth);
    if (extent.width == 0) return false;
    texture = Image::create();
    if (texture == NullFC) return false;
    addRefCP(texture);
    texture->set(Image::OSG_A_PF, static_cast<Int32>(extent.width), static_cast<Int32>(extent.height));
    for (size_t i = 0; i < places.size(); ++i) {
        addGlyph(characters[i], pixels[i], places[i], extent);
        font.draw(characters[i], places[i], texture->getData(), extent.width);
    }
    endEditCP(texture, Image::PixelFieldMask);
    return true;
}

void TextTXFFace::addGlyph(wchar_t character, const GlyphPixels& pixels, const GlyphRectangle& place,
                           const TextureExtent& extent) {
    std::unique_ptr<TextTXFGlyph> glyph(new TextTXFGlyph);
    glyph->glyphIndex = static_cast<TextGlyph::Index>(character);
    glyph->horiAdvance = scale * static_cast<Real32>(pixels.advance);
    glyph->width = pixels.width;
    glyph->height = pixels.height;
    glyph->horiBearingX = pixels.left;
    glyph->horiBearingY = pixels.top;
    glyph->x = place.x;
    glyph->y = place.y;
    glyph->scale = scale;
    glyph->calculateCoordinates(extent.width, extent.height);
    glyphs[glyph->glyphIndex] = std::move(glyph);
}

const TextTXFGlyph& TextTXFFace::getTXFGlyph(TextGlyph::Index glyphIndex) const {
    static const TextTXFGlyph emptyGlyph;
    auto found = glyphs.find(glyphIndex);
    if (found == glyphs.end()) found = glyphs.find(otherCase(glyphIndex));
    return found == glyphs.end() ? emptyGlyph : *found->second;
}

const TextGlyph& TextTXFFace::getGlyph(TextGlyph::Index glyphIndex) const { return getTXFGlyph(glyphIndex); }

void TextTXFFace::fillGeo(GeometryPtr& geometry, const TextLayoutResult& layoutResult, Real32 textScale, Vec2f offset,
                          Color3f color) const {
    if (geometry == NullFC) return;
    const TextProperties properties(*geometry, color);
    if (!properties.isComplete()) return;
    properties.forEach([](const auto& property) { property->clear(); });
    if (geometry->getIndices() != NullFC || !geometry->getIndexMapping().empty()) {
        const CPEditor edit(geometry, Geometry::IndicesFieldMask | Geometry::IndexMappingFieldMask);
        geometry->setIndices(NullFC);
        geometry->getIndexMapping().clear();
    }
    addToGeom(geometry, layoutResult, textScale, offset, color);
}

void TextTXFFace::addToGeom(GeometryPtr& geometry, const TextLayoutResult& layoutResult, Real32 textScale, Vec2f offset,
                            Color3f color) const {
    if (geometry == NullFC) return;
    const TextProperties properties(*geometry, color);
    if (!properties.isComplete()) return;
    const UInt32 start = properties.positions->getSize();
    for (UInt32 i = 0; i < layoutResult.getNumGlyphs(); ++i) {
        const TextTXFGlyph& glyph = getTXFGlyph(layoutResult.indices[i]);
        if (glyph.getPixmapWidth() == 0 || glyph.getPixmapHeight() == 0) continue;
        const Real32 left = layoutResult.positions[i][0], top = layoutResult.positions[i][1];
        const Real32 right = left + glyph.getWidth(), bottom = top - glyph.getHeight();
        properties.addQuad(glyph, Vec2f(left, bottom) * textScale + offset, Vec2f(right, top) * textScale + offset,
                           color);
    }
    if (layoutResult.getNumGlyphs() > 0) {
        properties.types->push_back(GL_QUADS);
        properties.lengths->push_back(properties.positions->getSize() - start);
    }
    properties.forEach([](const auto& property) { endEditCP(property); });
}

GeometryPtr TextTXFFace::makeGeo(const TextLayoutResult& layoutResult, Real32 textScale, Vec2f offset,
                                 Color3f color) const {
    GeometryPtr geometry = Geometry::create();
    fillGeo(geometry, layoutResult, textScale, offset, color);
    return geometry;
}

NodePtr TextTXFFace::makeNode(const TextLayoutResult& layoutResult, Real32 textScale, Vec2f offset,
                              Color3f color) const {
    const GeometryPtr geometry = makeGeo(layoutResult, textScale, offset, color);
    return geometry == NullFC ? NodePtr() : makeNodeFor(geometry);
}

} // namespace osg
