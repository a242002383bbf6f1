#pragma once

#include <OpenSG/OSGChunkMaterial.h>
#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGTextTXFFace.h>

#include <string>
#include <vector>

namespace tesk::measurement::detail {

/// The face in which a visualisation writes its texts; holds it until the visualisation ends.
///
/// Without a face (no font to be had) geometries stay as they are and texts have the extent (0, 0).
class LabelFont {
public:
    /// The size follows the display's scale as it is now. There is no face before updateFace().
    LabelFont();
    ~LabelFont();
    LabelFont(const LabelFont&) = delete;
    LabelFont& operator=(const LabelFont&) = delete;

    /// Gets the face and binds its texture to the material; nothing changes when there is none to be had.
    void updateFace(const osg::ChunkMaterialPtr& textMaterial);

    /// Makes these lines the whole content of the geometry: one unit a line, multiplied by `scale`, y up, the first
    /// line's baseline starting at `offset`, further lines below. Returns the width and height of the text as laid out,
    /// not scaled. Ends the edit of the geometry; properties are refilled, not replaced.
    osg::Vec2f fill(osg::GeometryPtr geometry, const std::vector<std::string>& lines, float scale,
                    const osg::Vec2f& offset, const osg::Color3f& color) const;
    /// The same, but adds to the content that the geometry has.
    osg::Vec2f addTo(osg::GeometryPtr geometry, const std::vector<std::string>& lines, float scale,
                     const osg::Vec2f& offset, const osg::Color3f& color) const;

private:
    std::string family = "Arial Unicode MS";
    osg::TextFace::Style style = osg::TextFace::STYLE_PLAIN;
    float size;
    osg::TextTXFFace* face = nullptr;
};

} // namespace tesk::measurement::detail
