#pragma once

#include <measurement/Export.h>

#include <OpenSG/OSGColor.h>

namespace tesk::measurement {

/// The colour in which every display of samples shows a distance, by how it compares with a reference.
class TESK_MEASUREMENT_EXPORT LineObjectMeasurementColorGenerator {
public:
    /// Light blue (0.25, 0.75, 1) up to 1/14 below the reference, yellow (0.8, 0.8, 0) from 1/14 above it, linear
    /// between. Reference and value share one unit.
    ///
    /// A reference of 0 gives yellow to values above it and light blue to 0 itself; whatever leads to no number, light
    /// blue.
    static osg::Color3f getColor(float reference, float value);
};

} // namespace tesk::measurement
