#pragma once

#include <OpenSG/OSGMatrix.h>

namespace osg {

// Projections onto the cube from -1 to 1 in each axis, for an eye that looks along -z; all return
// **true on error** and then leave the identity.

/// The angle is half the vertical opening, in radians; the aspect is width by height.
OSG_SYSTEMLIB_DLLMAPPING bool MatrixPerspective(Matrix& result, Real32 halfFieldOfView, Real32 aspect,
                                                Real32 nearDistance, Real32 farDistance);
OSG_SYSTEMLIB_DLLMAPPING bool MatrixFrustum(Matrix& result, Real32 left, Real32 right, Real32 bottom, Real32 top,
                                            Real32 nearDistance, Real32 farDistance);
OSG_SYSTEMLIB_DLLMAPPING bool MatrixOrthogonal(Matrix& result, Real32 left, Real32 right, Real32 bottom, Real32 top,
                                               Real32 nearDistance, Real32 farDistance);

/// From the camera's frame to that of the arguments: at `from`, looking along -z to `at`, with `up`
/// upwards on the picture. The points coincide or `up` points along the view: true, and the identity.
OSG_SYSTEMLIB_DLLMAPPING bool MatrixLookAt(Matrix& result, const Pnt3f& from, const Pnt3f& at, const Vec3f& up);

} // namespace osg
