#pragma once

#include <OpenSG/OSGVector.h>

namespace tesk::measurement {

/// Whether a computed value is usable: within [-1e30, 1e30]. NaN is not.
inline bool isFiniteNumber(float x) { return -1e+30f <= x && x <= 1e+30f; }

/// Whether all three coordinates of a computed point are usable numbers.
inline bool isValid(const osg::Pnt3f& point) {
    return isFiniteNumber(point[0]) && isFiniteNumber(point[1]) && isFiniteNumber(point[2]);
}

} // namespace tesk::measurement
