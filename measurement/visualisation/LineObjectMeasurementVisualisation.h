#pragma once

#include <measurement/visualisation/AbstractMeasurementVisualisation.h>

#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGLineChunk.h>
#include <OpenSG/OSGSimpleMaterial.h>

namespace tesk::measurement {

/// Shows the samples of line-object and gap measurements, each as a line between its two points in the colour that
/// LineObjectMeasurementColorGenerator gives its length with the average distance as the reference.
///
/// The subtree of a measurement:
/// \code
/// Group
///   0 Geometry   GL_LINES, two points, indices and colours a sample
/// \endcode
/// All share one material, drawn after the scene; it is unlit and its colour gives way to those of the vertices.
/// Positions are in world coordinates. A sample with a coordinate that is not finite is not shown.
///
/// An update is linear in the number of samples.
class TESK_MEASUREMENT_EXPORT LineObjectMeasurementVisualisation : public AbstractMeasurementVisualisation {
public:
    LineObjectMeasurementVisualisation();

    osg::NodePtr createVisualisation(const Measurement* measurement) override;
    void removeVisualisation(const Measurement* measurement, const osg::NodePtr& node) override;
    void updateVisualisation(const Measurement* measurement, const osg::NodePtr& node) override;

    /// In pixels; shows at once, like the colour.
    void setLineWidth(float width);
    float getLineWidth() const { return lineWidth; }
    void setLineColor(const osg::Color3f& color);
    const osg::Color3f& getLineColor() const { return lineColor; }

private:
    void createMaterial();
    void updateMaterial();

    float lineWidth = 2.0f;
    osg::Color3f lineColor{1.0f, 0.8f, 0.2f};
    osg::RefPtr<osg::LineChunkPtr> lineChunk;
    osg::RefPtr<osg::SimpleMaterialPtr> material;
};

} // namespace tesk::measurement
