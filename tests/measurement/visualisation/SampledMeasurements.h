#pragma once

#include <measurement/section/GapMeasurement.h>

#include <support/Scenes.h>

namespace tesk::test {

/// A gap between a flat bar along x and a slope whose distance from it is 1.6 + 0.6 x.
class SlantedGap {
public:
    measurement::GapMeasurement measurement{nullptr};

    /// A sample at every whole x from 1 on; none when `last` is 1, as a track from a point to itself has none.
    void measure(osg::UInt32 last) {
        measurement.setNode1(bar, {1, 0, 0});
        measurement.setNode2(slope, {float(last), 0, 0});
        measurement.update();
    }

private:
    const SceneNode bar = triangles({{{0, 0, 0}, {9000, 0, 0}, {9000, 1, 0}}});
    const SceneNode slope = triangles({{{-40, -9, -28}, {40, -9, 32}, {40, 99, 32}}});
};

} // namespace tesk::test
