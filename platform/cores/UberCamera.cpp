#include <platform/cores/UberCamera.h>

#include <OpenSG/OSGMatrixUtility.h>

namespace osg {

TESK_CORE_DEF(UberCamera, Camera, TESK_UBERCAMERA_FIELDS)

void UberCamera::getProjection(Matrix& result, UInt32 width, UInt32 height) {
    result.setIdentity();
    if (width == 0 || height == 0) return;
    const Real32 aspect = static_cast<Real32>(width) / static_cast<Real32>(height);
    Matrix projection;
    bool isWrong;
    if (getOrthographic()) {
        const Real32 halfHeight = getVerticalSize() * 0.5f, halfWidth = halfHeight * aspect;
        isWrong = MatrixOrthogonal(projection, -halfWidth, halfWidth, -halfHeight, halfHeight, getNear(), getFar());
    } else {
        const Real32 angle = getFov() > Pi ? osgdegree2rad(getFov()) : getFov();
        isWrong = MatrixPerspective(projection, angle * 0.5f, aspect, getNear(), getFar());
    }
    if (!isWrong) result = projection;
}

} // namespace osg
