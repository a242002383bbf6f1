#pragma once

#include <measurement/visualisation/AbstractMeasurementVisualisation.h>

#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGMaterial.h>
#include <OpenSG/OSGVector.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace tesk::measurement {

namespace detail {
struct LabelResources;
}

/// What the visualisations with arrows and a label have in common: their look, and the nodes that show it.
///
/// Three children of each measurement's subtree, side by side, are
///
///     line          Geometry    the arrows' lines
///     arrowheads    Geometry    a four-sided pyramid at each end of each arrow
///     label         Camboard    faces the camera, scaled between the limits
///         text      Geometry    by the text face: one unit a line, the last baseline at y = 0
///         plate     Geometry    half transparent, 0.1 behind the text
///         outline   Geometry    around the text; invisible
///         border    Geometry    around the text
///
/// All geometries but the text share one property of positions, with the first arrow's points at 0-11, the plate's
/// corners at 12-15, those of outline and border at 16-19 and a second arrow's points at 20-31. Arrows are in the frame
/// of the root, which is that of the measured points; the corners are in the label's space. Materials, indices, types
/// and lengths are shared by all subtrees of a visualisation, so that a change of colour or line width shows in all at
/// once and costs no rebuilding. Updates refill what a subtree has.
///
/// Arrowheads are drawn within the scene, lines over it, labels over the lines of all measurements.
///
/// What cannot be drawn, an arrow or label with coordinates that are not valid (isValid()), is hidden by a traversal
/// mask of 0 until it can be, so that it takes nothing else of the picture with it. A line of length 0 has no
/// arrowheads. Without any font there are no texts, and a plate of 0.4 x 0.1 stands on the label's origin.
class TESK_MEASUREMENT_EXPORT LabelledMeasurementVisualisation : public AbstractMeasurementVisualisation {
public:
    /// Recolours existing texts, too.
    void setTextColor(const osg::Color3f& color);
    const osg::Color3f& getTextColor() const { return textColor; }
    void setLineColor(const osg::Color3f& color);
    const osg::Color3f& getLineColor() const { return lineColor; }
    /// Stores the colour, which shows nowhere: see updateMaterial().
    void setBorderColor(const osg::Color3f& color);
    const osg::Color3f& getBorderColor() const { return borderColor; }
    void setBackColor(const osg::Color3f& color);
    const osg::Color3f& getBackColor() const { return backColor; }
    /// In pixels.
    void setLineWidth(float width);
    float getLineWidth() const { return lineWidth; }

    /// The size of a label, which osg::Camboard explains: with limits of 1 and 1 the scale is the height of a text line
    /// in world units, with 0 and the height of the largest view its part of the view's height. Both hold for subtrees
    /// made from now on. A label's volume holds it at its largest, so that a far limit beyond need widens the scene.
    void setTextScale(float scale) { textScale = scale; }
    float getTextScale() const { return textScale; }
    void setScaleLimits(float nearLimit, float farLimit);
    float getNearScaleLimit() const { return nearScaleLimit; }
    float getFarScaleLimit() const { return farScaleLimit; }

    /// Gets the text face anew; nothing happens when there is none to be had. Texts follow when they are updated.
    void updateFace();
    /// Writes colours and line width into the materials.
    ///
    /// Deliberate: borders get the line colour. The border colour holds from construction to the first call, and every
    /// setter of a colour or of the line width is one.
    void updateMaterial();

    /// Nothing is kept for a subtree.
    void removeVisualisation(const Measurement* measurement, const osg::NodePtr& node) override;
    /// Whether the measurement is of a kind shown here; false for null.
    virtual bool isSupported(const Measurement* measurement) = 0;

protected:
    /// The three children come at `firstChild` of each subtree, the arrows being one or two.
    LabelledMeasurementVisualisation(osg::UInt32 firstChild, osg::UInt32 arrowCount);
    ~LabelledMeasurementVisualisation();

    osg::NodePtr createLine(const osg::GeoPositionsPtr& positions) const;
    osg::NodePtr createArrowheads(const osg::GeoPositionsPtr& positions) const;
    osg::NodePtr createLabel(const osg::GeoPositionsPtr& positions) const;

    /// A line from start to end with a head at each, as long as `head`, a vector along the line.
    struct Arrow {
        osg::Pnt3f start;
        osg::Pnt3f end;
        osg::Vec3f head;
    };
    void placeLabel(const osg::NodePtr& node, const osg::Pnt3f& position) const;
    /// Writes the lines of text, the last one's baseline starting at `origin` in the label's space. Returns the text's
    /// width and height.
    osg::Vec2f fillText(const osg::NodePtr& node, const std::vector<std::string>& lines,
                        const osg::Pnt2f& origin) const;
    /// Fills the positions with these arrows, as many as the constructor was told, and a plate for a text of that size.
    void fillPositions(const osg::NodePtr& node, std::initializer_list<Arrow> arrows, const osg::Vec2f& textSize) const;

    osg::MaterialPtr getLineMaterial() const;
    osg::MaterialPtr getArrowheadMaterial() const;

private:
    void createMaterial();
    void createBuffers(osg::UInt32 arrowCount);
    void recolorTexts();
    osg::GeometryPtr getText(const osg::NodePtr& node) const;

    osg::Color3f textColor{1.0f, 0.8f, 0.3f};
    osg::Color3f lineColor{1.0f, 0.8f, 0.2f};
    osg::Color3f borderColor{1.0f, 0.8f, 0.2f};
    osg::Color3f backColor{0.3f, 0.3f, 0.3f};
    float textScale = 0.1f;
    float nearScaleLimit = 1.0f;
    float farScaleLimit = 1.0f;
    float lineWidth = 2.0f;
    osg::UInt32 firstChild;
    std::unique_ptr<detail::LabelResources> resources;
};

} // namespace tesk::measurement
