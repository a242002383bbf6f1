#include <OpenSG/OSGCamera.h>

#include <OpenSG/OSGLine.h>
#include <OpenSG/OSGMatrixCamera.h>
#include <OpenSG/OSGMatrixUtility.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGOrthographicCamera.h>
#include <OpenSG/OSGPerspectiveCamera.h>
#include <OpenSG/OSGWindow.h>

namespace osg {

namespace {

/// Width of the view by its height.
Real32 viewRatio(UInt32 width, UInt32 height, Real32 aspect) {
    return static_cast<Real32>(width) / static_cast<Real32>(height) * aspect;
}

} // namespace

OSG_ABSTRACT_CONTAINER_DEF(Camera)
OSG_CONTAINER_DEF(PerspectiveCamera)
OSG_CONTAINER_DEF(OrthographicCamera)
OSG_CONTAINER_DEF(MatrixCamera)

void Camera::getViewing(Matrix& result, UInt32, UInt32) {
    if (beacon == NullFC) {
        result.setIdentity();
        return;
    }
    beacon->getToWorld(result);
    result.invert();
}

void Camera::getWorldToScreen(Matrix& result, const Viewport& viewport) {
    const UInt32 width = static_cast<UInt32>(osgMax(viewport.getPixelWidth(), 0));
    const UInt32 height = static_cast<UInt32>(osgMax(viewport.getPixelHeight(), 0));
    Matrix viewing;
    getProjection(result, width, height);
    getViewing(viewing, width, height);
    result.mult(viewing);
}

bool Camera::calcViewRay(Line& line, Int32 x, Int32 y, const Viewport& viewport) {
    const Int32 width = viewport.getPixelWidth(), height = viewport.getPixelHeight();
    if (width <= 0 || height <= 0 || viewport.getParent() == NullFC) return false;
    Matrix screenToWorld;
    getWorldToScreen(screenToWorld, viewport);
    screenToWorld.invert();
    const Int32 top = viewport.getParent()->getHeight() - viewport.getPixelTop();
    const Real32 screenX = static_cast<Real32>(x - viewport.getPixelLeft()) / static_cast<Real32>(width) * 2.0f - 1.0f;
    const Real32 screenY = 1.0f - static_cast<Real32>(y - top) / static_cast<Real32>(height) * 2.0f;
    Pnt3f from, at;
    screenToWorld.multFullMatrixPnt(Pnt3f(screenX, screenY, -1.0f), from);
    screenToWorld.multFullMatrixPnt(Pnt3f(screenX, screenY, 1.0f), at);
    line.setValue(from, at);
    return true;
}

void PerspectiveCamera::getProjection(Matrix& result, UInt32 width, UInt32 height) {
    result.setIdentity();
    if (width == 0 || height == 0) return;
    const Real32 opening = fov > Pi ? osgdegree2rad(fov) : fov;
    MatrixPerspective(result, opening / 2.0f, viewRatio(width, height, aspect), getNear(), getFar());
}

void OrthographicCamera::getProjection(Matrix& result, UInt32 width, UInt32 height) {
    result.setIdentity();
    if (width == 0 || height == 0) return;
    const Real32 halfHeight = verticalSize / 2.0f;
    const Real32 halfWidth = halfHeight * viewRatio(width, height, aspect);
    MatrixOrthogonal(result, -halfWidth, halfWidth, -halfHeight, halfHeight, getNear(), getFar());
}

void MatrixCamera::getProjection(Matrix& result, UInt32, UInt32) { result = projectionMatrix; }

void MatrixCamera::getViewing(Matrix& result, UInt32, UInt32) { result = modelviewMatrix; }

} // namespace osg
