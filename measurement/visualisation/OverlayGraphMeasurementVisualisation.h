#pragma once

#include <measurement/visualisation/SingleMeasurementVisualisation.h>

#include <OpenSG/OSGChunkMaterial.h>
#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGLineChunk.h>

#include <memory>
#include <string>

namespace osg {
class DrawActionBase;
}

namespace tesk::measurement {

namespace detail {
struct ChartFrame;
struct ChartSamples;
class ChartScale;
class GeometryRefill;
class LabelFont;
struct SampledDistances;
} // namespace detail

/// The distances of the active gap or line-object measurement as a chart at the lower left of the view: a point for
/// each sample, in the order of the samples and in the colour that LineObjectMeasurementColorGenerator gives it, and a
/// line with its value at the right for maximum, average and minimum. Around the mouse the chart is spread
/// horizontally, and the distance of the sample nearest it is written there. Any other measurement shows nothing.
///
/// \code
/// Screenboard
///   0 Group
///     0 Geometry   plates behind the text, dark and light in turn
///     1 Geometry   lines of maximum, average and minimum
///     2 Geometry   frame
///     3 Geometry   marker of the sample nearest the mouse
///     4 Geometry   samples
///     5 Geometry   text: labels, then the distance at the mouse
/// \endcode
/// It is drawn over the scene; coordinates are those of the board, whose units follow the size of the view. Heights
/// start at distance zero. What has no height within the frame is left out: distances that are not finite, and the
/// minimum of a measurement without samples. Without a font there is no text.
///
/// Every drawing, thus every move of the mouse, is linear in the number of samples.
class TESK_MEASUREMENT_EXPORT OverlayGraphMeasurementVisualisation : public SingleMeasurementVisualisation {
public:
    OverlayGraphMeasurementVisualisation();
    ~OverlayGraphMeasurementVisualisation();

    osg::NodePtr createVisualisation(const Measurement* measurement) override;
    void removeVisualisation(const Measurement* measurement, const osg::NodePtr& node) override;
    void updateVisualisation(const Measurement* measurement, const osg::NodePtr& node) override;
    /// Draws the chart anew, when it is shown.
    void updateVisualisation();

    /// Whether it is a line-object or a gap measurement; not so for null.
    bool isMeasurementSupported(const Measurement* measurement) const;

    /// Draws the chart for the mouse at a position of the window, in pixels from the top left corner, y down. The
    /// action has the viewport in which the chart is drawn.
    void mouseMoved(osg::DrawActionBase* action, const osg::Pnt2f& position);
    /// Where the chart shows a horizontal place: away from the mouse while that is in the frame as last drawn.
    float getZoomedX(float x) const;

    // Each draws the chart anew.
    void setTextColor(const osg::Color3f& color);
    const osg::Color3f& getTextColor() const { return textColor; }
    void setBorderColor(const osg::Color3f& color);
    const osg::Color3f& getBorderColor() const { return borderColor; }
    void setLineColor(const osg::Color3f& color);
    const osg::Color3f& getLineColor() const { return lineColor; }
    /// The colour from which the shades of the plates are made, 0.8 and 1.2 times as bright.
    void setBackColor(const osg::Color3f& color);
    const osg::Color3f& getBackColor() const { return backColor; }
    /// In pixels.
    void setLineWidth(float width);
    float getLineWidth() const { return lineWidth; }

private:
    void createMaterial();
    void updateMaterial();
    void updateShades();
    void writeFrame(const osg::NodePtr& board) const;
    void writeSamples(const detail::ChartSamples& samples, const osg::NodePtr& board) const;
    /// Lines with labels for maximum, average and minimum.
    void writeStatistics(const detail::SampledDistances& distances, const detail::ChartScale& scale,
                         detail::GeometryRefill& plates, const osg::NodePtr& board) const;
    /// The distance at the mouse, and which sample has it.
    void writeReadOut(const detail::ChartSamples& samples, detail::GeometryRefill& plates,
                      const osg::NodePtr& board) const;
    void clearText(const osg::NodePtr& board) const;
    /// Adds a text and the plate behind it.
    void addText(const std::string& line, const osg::Pnt2f& baseline, const osg::Color4f& plateColor,
                 detail::GeometryRefill& plates, const osg::NodePtr& board) const;

    osg::Color3f textColor{1.0f, 0.85f, 0.0f};
    osg::Color3f borderColor{1.0f, 0.85f, 0.3f};
    osg::Color3f backColor{0.3f, 0.3f, 0.3f};
    float backAlpha = 0.7f;
    osg::Color4f darkBackColor;
    osg::Color4f lightBackColor;
    osg::Color3f lineColor{1.0f, 0.8f, 0.2f};
    osg::Color4f markerColor{1.0f, 0.72f, 0.0f, 0.7f};
    float lineWidth = 3.0f;
    std::unique_ptr<detail::ChartFrame> frame;
    std::unique_ptr<detail::LabelFont> font;

    osg::RefPtr<osg::ChunkMaterialPtr> plateMaterial;
    osg::RefPtr<osg::ChunkMaterialPtr> lineMaterial;
    osg::RefPtr<osg::ChunkMaterialPtr> frameMaterial;
    osg::RefPtr<osg::ChunkMaterialPtr> markerMaterial;
    osg::RefPtr<osg::ChunkMaterialPtr> sampleMaterial;
    osg::RefPtr<osg::ChunkMaterialPtr> textMaterial;
    osg::RefPtr<osg::LineChunkPtr> lineChunk;
};

} // namespace tesk::measurement
