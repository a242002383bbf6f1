#pragma once

#include <measurement/visualisation/LabelledMeasurementVisualisation.h>

#include <OpenSG/OSGRefPtr.h>

namespace tesk::measurement {

/// Shows circle measurements: the ring through the three picked points, a small sphere on each of them and on the
/// centre, the radius and the diameter as arrows, and a label with circumference, diameter and radius.
///
/// With centre C, radius r, unit normal N and points P1, P2, P3, all in the root's frame, a subtree reads
///
///     Group
///         ring               Transform3D           36 lines, at C, radius r, turned from (0, 0, 1) to N
///         markers (four)     Transform3D           spheres of radius 0.025 r on P1, P2, P3 and C
///         line               from P1 to C and from P2 across the circle to 2 C - P2
///         arrowheads         four, a tenth of the radius long
///         label              three lines, half way between C and P1; see LabelledMeasurementVisualisation
///         axis               Transform3D           from C along N, r / 4 long
///         centre stroke      ComponentTransform    across the diameter arrow through C, r / 5 long
///
/// The shapes below the transforms have one geometry each for all subtrees: ring, axis and stroke in the material of
/// the line, the spheres in that of the arrowheads.
///
/// A normal shorter than 1e-6 (points on one line, or a circle of less than a thousandth in size) is not normalised;
/// the ring then lies parallel to the XY plane, and there are no axis and no stroke. A circle of radius 0 shrinks to
/// its centre; one that is not finite shows its points alone, as far as they are valid.
///
/// \code
/// CircleMeasurementVisualisation circles;
/// circles.setPrecision(2); // "Circumference: 6.28", "Diameter: 2.00", "Radius: 1.00"
/// manager.addVisualisation(&circles);
/// \endcode
class TESK_MEASUREMENT_EXPORT CircleMeasurementVisualisation : public LabelledMeasurementVisualisation {
public:
    CircleMeasurementVisualisation();
    ~CircleMeasurementVisualisation();

    osg::NodePtr createVisualisation(const Measurement* measurement) override;
    /// Refills a subtree made by createVisualisation(); nothing for an unsupported measurement.
    void updateVisualisation(const Measurement* measurement, const osg::NodePtr& node) override;
    bool isSupported(const Measurement* measurement) override;

    /// Writes the three lines into the text of such a subtree, the last one's baseline starting at `position` in the
    /// label's space, and tells the text's width and height: (0, 0), with nothing written, when there is no font.
    void updateRadiusText(const Measurement* measurement, const osg::NodePtr& node, const osg::Pnt2f& position,
                          osg::Vec2f& size);

private:
    /// Shapes whose cores the subtrees share.
    osg::RefPtr<osg::NodePtr> ring;
    osg::RefPtr<osg::NodePtr> marker;
    osg::RefPtr<osg::NodePtr> axis;
    osg::RefPtr<osg::NodePtr> stroke;
};

} // namespace tesk::measurement
