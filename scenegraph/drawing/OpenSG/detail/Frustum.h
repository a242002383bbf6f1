#pragma once

#include <OpenSG/OSGDynamicVolume.h>
#include <OpenSG/OSGMatrix.h>

namespace osg {

/// What a camera sees: the space between six planes.
class Frustum {
public:
    /// A bit for each plane that boxes still have to be tested against.
    using PlaneSet = UInt8;
    static constexpr PlaneSet allPlanes = 0x3f;

    Frustum() = default;
    explicit Frustum(const Matrix& worldToClip);

    /// Whether something of the volume, in world coordinates, may be inside of the planes in the set. Takes those
    /// planes out of the set that all of it is inside of. NaN is taken for visible.
    bool isVisible(const Volume& volume, PlaneSet& planes) const;

private:
    static constexpr UInt32 planeCount = 6;

    /// Inside is where x * p[0] + y * p[1] + z * p[2] + p[3] is not negative.
    Vec4f planes[planeCount];
};

} // namespace osg
