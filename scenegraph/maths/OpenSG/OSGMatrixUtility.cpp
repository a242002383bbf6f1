#include <OpenSG/OSGMatrixUtility.h>

namespace osg {

namespace {

bool isTooSmall(Real32 extent) { return !(osgabs(extent) > 1e-30f); }

} // namespace

bool MatrixPerspective(Matrix& result, Real32 halfFieldOfView, Real32 aspect, Real32 nearDistance, Real32 farDistance) {
    const Real32 top = osgtan(halfFieldOfView) * nearDistance;
    const Real32 right = top * aspect;
    return MatrixFrustum(result, -right, right, -top, top, nearDistance, farDistance);
}

bool MatrixFrustum(Matrix& result, Real32 left, Real32 right, Real32 bottom, Real32 top, Real32 nearDistance,
                   Real32 farDistance) {
    const Real32 width = right - left, height = top - bottom, depth = farDistance - nearDistance;
    result.setIdentity();
    if (isTooSmall(width) || isTooSmall(height) || isTooSmall(depth) || !(nearDistance > 0.0f)) return true;
    result.setValue(2.0f * nearDistance / width, 0.0f, (right + left) / width, 0.0f,                               //
                    0.0f, 2.0f * nearDistance / height, (top + bottom) / height, 0.0f,                             //
                    0.0f, 0.0f, -(farDistance + nearDistance) / depth, -2.0f * farDistance * nearDistance / depth, //
                    0.0f, 0.0f, -1.0f, 0.0f);
    return false;
}

bool MatrixOrthogonal(Matrix& result, Real32 left, Real32 right, Real32 bottom, Real32 top, Real32 nearDistance,
                      Real32 farDistance) {
    const Real32 width = right - left, height = top - bottom, depth = farDistance - nearDistance;
    result.setIdentity();
    if (isTooSmall(width) || isTooSmall(height) || isTooSmall(depth)) return true;
    result.setScale(2.0f / width, 2.0f / height, -2.0f / depth);
    result.setTranslate(-(right + left) / width, -(top + bottom) / height, -(farDistance + nearDistance) / depth);
    return false;
}

bool MatrixLookAt(Matrix& result, const Pnt3f& from, const Pnt3f& at, const Vec3f& up) {
    result.setIdentity();
    Vec3f backward = from - at;
    if (!(backward.length() > Eps)) return true;
    backward.normalize();
    Vec3f right = up.cross(backward);
    if (!(right.length() > Eps)) return true;
    right.normalize();
    const Vec3f top = backward.cross(right);
    result.setValue(right[0], top[0], backward[0], from[0], //
                    right[1], top[1], backward[1], from[1], //
                    right[2], top[2], backward[2], from[2], //
                    0.0f, 0.0f, 0.0f, 1.0f);
    return false;
}

} // namespace osg
