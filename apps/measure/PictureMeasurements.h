#pragma once

#include <measurement/visualisation/CircleMeasurementVisualisation.h>
#include <measurement/visualisation/LineObjectLegendVisualisation.h>
#include <measurement/visualisation/LineObjectMeasurementVisualisation.h>
#include <measurement/visualisation/OverlayGraphMeasurementVisualisation.h>
#include <measurement/visualisation/SimpleMeasurementVisualisation.h>

#include <vector>

namespace tesk::measure {

/// How measurements are written and drawn.
struct PictureStyle {
    /// Of a line of text, as a part of the picture's height.
    float labelHeight;
    /// In pixels.
    float lineWidth;
    /// After the decimal point.
    int decimals;
};

/// A label's plate: where its origin is in the world, and its corners from there in lines of text, right and up.
struct PictureLabel {
    osg::Pnt3f position;
    osg::Vec2f lower;
    osg::Vec2f upper;
};

/// The measurements as a picture shows them, by the library's visualisations.
class PictureMeasurements {
public:
    explicit PictureMeasurements(const PictureStyle& style);

    osg::NodePtr getNode() const { return root.get(); }
    void add(const measurement::Measurement& measurement);
    /// Shows chart and, for a line-object, legend of a gap or line-object measurement that outlives this.
    void setActive(const measurement::Measurement& measurement);
    std::vector<PictureLabel> getLabels() const;

private:
    measurement::SimpleMeasurementVisualisation distances;
    measurement::CircleMeasurementVisualisation circles;
    measurement::LineObjectMeasurementVisualisation samples;
    measurement::OverlayGraphMeasurementVisualisation chart;
    measurement::LineObjectLegendVisualisation legend;
    osg::RefPtr<osg::NodePtr> root;
};

/// Where a measurement is to be seen in the world: ends and middle of a distance and of each sample, points along a
/// circle. Ends are moved towards each other by a part of their distance.
std::vector<osg::Pnt3f> pointsOf(const measurement::Measurement& measurement, float inset = 0.0f);

} // namespace tesk::measure
