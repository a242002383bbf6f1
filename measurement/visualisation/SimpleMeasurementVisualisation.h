#pragma once

#include <measurement/visualisation/LabelledMeasurementVisualisation.h>

namespace tesk::measurement {

/// Shows distances between two points: a line with an arrowhead at each end and, half way, the measured value.
///
/// Supports point-point, point-object and object-object measurements. The value is written with as many digits after
/// the decimal point as the precision says, without a unit. A subtree reads
///
///     Group
///         line          from point 1 to point 2
///         arrowheads    each a tenth of the line long and a twenty-fifth of it wide
///         label         at the midpoint; see LabelledMeasurementVisualisation
///
/// \code
/// SimpleMeasurementVisualisation distances;
/// distances.setScaleLimits(0.0f, 2.0f * sceneHeight);
/// distances.setTextScale(0.03f); // 3 % of the view's height a line
/// manager.addVisualisation(&distances);
/// \endcode
class TESK_MEASUREMENT_EXPORT SimpleMeasurementVisualisation : public LabelledMeasurementVisualisation {
public:
    SimpleMeasurementVisualisation();
    ~SimpleMeasurementVisualisation();

    osg::NodePtr createVisualisation(const Measurement* measurement) override;
    /// Refills a subtree made by createVisualisation(); nothing for an unsupported measurement.
    void updateVisualisation(const Measurement* measurement, const osg::NodePtr& node) override;
    bool isSupported(const Measurement* measurement) override;

    /// Writes the measured value into the text of such a subtree, its baseline starting at `position` in the label's
    /// space, and tells the text's width and height: (0, 0), with nothing written, when there is no font.
    void updateText(const Measurement* measurement, const osg::NodePtr& node, const osg::Pnt2f& position,
                    osg::Vec2f& size);
};

} // namespace tesk::measurement
