#pragma once

#include <measurement/visualisation/SingleMeasurementVisualisation.h>

#include <OpenSG/OSGChunkMaterial.h>
#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGSimpleMaterial.h>

#include <memory>

namespace tesk::measurement {

class LineObjectMeasurement;

namespace detail {
class LabelFont;
}

/// A box at the upper right of the view with the largest, average and smallest distance of the active line-object
/// measurement. A measurement of any other kind shows nothing.
///
/// \code
/// Screenboard
///   0 Group
///     0 Geometry   back plate
///     1 Geometry   text, one line each for maximum, average and minimum
///     2 Geometry   frame, coloured by vertices
/// \endcode
/// It is drawn over the scene; coordinates are those of the board, whose units follow the size of the view. Long
/// numbers run out of the box to the right. Without a font the box stays empty.
class TESK_MEASUREMENT_EXPORT LineObjectLegendVisualisation : public SingleMeasurementVisualisation {
public:
    LineObjectLegendVisualisation();
    ~LineObjectLegendVisualisation();

    osg::NodePtr createVisualisation(const Measurement* measurement) override;
    void removeVisualisation(const Measurement* measurement, const osg::NodePtr& node) override;
    void updateVisualisation(const Measurement* measurement, const osg::NodePtr& node) override;
    /// Draws the box anew, when it is shown.
    void updateVisualisation();

    // A colour shows at once.
    void setBorderColor(const osg::Color3f& color);
    const osg::Color3f& getBorderColor() const { return borderColor; }
    void setBackColor(const osg::Color3f& color);
    const osg::Color3f& getBackColor() const { return backColor; }
    void setTextColor(const osg::Color3f& color);
    const osg::Color3f& getTextColor() const { return textColor; }

    /// Gets the font's face anew; the text follows at its next update.
    void updateFace();
    /// Brings materials and the box shown up to date with the colours.
    void updateMaterial();

private:
    void createMaterial();
    void writePlate(const osg::NodePtr& node) const;
    void writeFrame(const osg::NodePtr& node) const;
    void writeText(const LineObjectMeasurement& measurement, const osg::NodePtr& node) const;

    osg::Color3f borderColor{1.0f, 0.85f, 0.5f};
    osg::Color3f backColor{0.0f, 0.0f, 0.0f};
    osg::Color3f textColor{1.0f, 0.85f, 0.0f};
    std::unique_ptr<detail::LabelFont> font;
    osg::RefPtr<osg::SimpleMaterialPtr> backMaterial;
    osg::RefPtr<osg::ChunkMaterialPtr> textMaterial;
    osg::RefPtr<osg::SimpleMaterialPtr> borderMaterial;
};

} // namespace tesk::measurement
