#include <platform/cores/Screenboard.h>

#include <platform/cores/detail/Placing.h>

#include <OpenSG/OSGIntersectAction.h>
#include <OpenSG/OSGViewport.h>
#include <OpenSG/OSGWindow.h>

#include <algorithm>
#include <cmath>

namespace osg {

TESK_CORE_DEF(Screenboard, Group, TESK_SCREENBOARD_FIELDS)

namespace {

/// How many pixels of the viewport a unit of the board takes; false when there is no board then.
bool getPixelsPerUnit(const Viewport& viewport, const Vec2f& extent, Real32& pixels) {
    const Real32 across = static_cast<Real32>(viewport.getPixelWidth()) / extent[0];
    const Real32 upwards = static_cast<Real32>(viewport.getPixelHeight()) / extent[1];
    pixels = std::min(across, upwards);
    // Both are false for NaN.
    return across > 0.0f && upwards > 0.0f && std::isfinite(pixels);
}

/// From x and y between -1 and 1 on the viewport, at some depth, to where the camera sees them; z stays 0.
///
/// The depth is 0.9, between -1 at the near and 1 at the far plane: in perspective about twenty times as far away as
/// the near plane. Next to it, where the whole view is small, positions far from the world's origin would be too
/// coarse.
Matrix unproject(const Matrix& projection) {
    const Real32 depth = 0.9f;
    const Matrix& p = projection;
    const Real32 z = (depth * p[3][3] - p[3][2]) / (p[2][2] - depth * p[2][3]);
    const Real32 w = z * p[2][3] + p[3][3];
    const Real32 determinant = p[0][0] * p[1][1] - p[1][0] * p[0][1];
    const Real32 offsetX = z * p[2][0] + p[3][0], offsetY = z * p[2][1] + p[3][1];
    const Real32 xx = p[1][1] / determinant, xy = -p[1][0] / determinant;
    const Real32 yx = -p[0][1] / determinant, yy = p[0][0] / determinant;
    return Matrix(xx * w, xy * w, 0.0f, -(xx * offsetX + xy * offsetY), yx * w, yy * w, 0.0f,
                  -(yx * offsetX + yy * offsetY), 0.0f, 0.0f, 0.0f, z, 0.0f, 0.0f, 0.0f, 1.0f);
}

} // namespace

void Screenboard::initMethod() {
    RenderAction::registerEnterDefault(getClassType(), makeFunctor<Screenboard>(&Screenboard::renderEnter));
    RenderAction::registerLeaveDefault(getClassType(), makeFunctor<Screenboard>(&Screenboard::renderLeave));
    IntersectAction::registerEnterDefault(getClassType(), makeFunctor<Screenboard>(&Screenboard::intersectEnter));
}

Pnt2f Screenboard::calcPosition(const DrawActionBase* action, const Pnt2f& windowPosition) const {
    const Viewport* const viewport = action ? action->getViewport() : nullptr;
    Real32 pixelsPerUnit = 0.0f;
    if (!viewport || viewport->getParent() == NullFC || !getPixelsPerUnit(*viewport, getExtent(), pixelsPerUnit))
        return Pnt2f();
    const Real32 windowHeight = static_cast<Real32>(viewport->getParent()->getHeight());
    const Vec2f size(static_cast<Real32>(viewport->getPixelWidth()), static_cast<Real32>(viewport->getPixelHeight()));
    const Vec2f pixel(windowPosition[0] - static_cast<Real32>(viewport->getPixelLeft()),
                      windowHeight - windowPosition[1] - static_cast<Real32>(viewport->getPixelBottom()));
    Pnt2f result;
    for (UInt32 axis = 0; axis < 2; ++axis) {
        const Real32 anchorPixel = (getAnchor()[axis] + 1.0f) * 0.5f * size[axis];
        result[axis] = getOrigin()[axis] + (pixel[axis] - anchorPixel) / pixelsPerUnit;
    }
    return result;
}

bool Screenboard::calcMatrix(const DrawActionBase* action, const Matrix& toWorld, Matrix& result) const {
    View view;
    Real32 pixelsPerUnit = 0.0f;
    if (!getView(action, view) || !action->getViewport() ||
        !getPixelsPerUnit(*action->getViewport(), getExtent(), pixelsPerUnit))
        return false;
    Matrix toCamera(view.viewing), fromCamera;
    toCamera.mult(toWorld);
    if (!invertAffine(toCamera, fromCamera)) return false;

    const Real32 scaleX = 2.0f * pixelsPerUnit / static_cast<Real32>(action->getViewport()->getPixelWidth());
    const Real32 scaleY = 2.0f * pixelsPerUnit / static_cast<Real32>(action->getViewport()->getPixelHeight());
    Matrix toView;
    toView.setScale(scaleX, scaleY, 1.0f);
    toView.setTranslate(getAnchor()[0] - getOrigin()[0] * scaleX, getAnchor()[1] - getOrigin()[1] * scaleY, 0.0f);
    Matrix board = unproject(view.projection);
    board.mult(toView);
    // So little that perspective does not move what is off the plane.
    const Real32 zShrinking = 1e-3f;
    board[2][2] = zShrinking * getColumn(board, 1).length();

    board.multLeft(fromCamera);
    if (!isFinite(board)) return false;
    result = board;
    return true;
}

void Screenboard::adjustVolume(Volume& volume) { makeAlwaysVisible(volume); }

Action::ResultE Screenboard::renderEnter(Action* action) { return enterBoard(*this, action); }

Action::ResultE Screenboard::renderLeave(Action* action) { return leaveBoard(action); }

Action::ResultE Screenboard::intersectEnter(Action*) { return Action::Skip; }

} // namespace osg
