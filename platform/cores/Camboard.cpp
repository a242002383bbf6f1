#include <platform/cores/Camboard.h>

#include <platform/cores/detail/Placing.h>

#include <OpenSG/OSGBoxVolume.h>
#include <OpenSG/OSGIntersectAction.h>
#include <OpenSG/OSGNode.h>

#include <algorithm>
#include <cmath>

namespace osg {

TESK_CORE_DEF(Camboard, Group, TESK_CAMBOARD_FIELDS)

namespace {

/// The height of the view at the depth of a point, both in world coordinates; 0 behind the camera.
Real32 getViewHeight(const View& view, const Matrix& cameraToWorld, const Pnt3f& point) {
    Pnt3f seen;
    view.viewing.multMatrixPnt(point, seen);
    const Matrix& projection = view.projection;
    // What a point is divided by: its distance in perspective, 1 otherwise.
    const Real32 w =
        seen[0] * projection[0][3] + seen[1] * projection[1][3] + seen[2] * projection[2][3] + projection[3][3];
    const Real32 height = 2.0f * w / std::fabs(projection[1][1]) * getColumn(cameraToWorld, 1).length();
    return std::max(0.0f, height);
}

/// How far a box reaches from the origin.
Real32 getReach(const Volume& volume) {
    Pnt3f lowest, highest;
    volume.getBounds(lowest, highest);
    Vec3f farthest;
    for (UInt32 axis = 0; axis < 3; ++axis)
        farthest[axis] = std::max(std::fabs(lowest[axis]), std::fabs(highest[axis]));
    return farthest.length();
}

/// How far a ball of radius 1 in the world reaches along the axes of the frame in which the nodes stand: the farthest,
/// where there are several. That of the world itself where it cannot be told.
Vec3f getReachOfUnitBall(const MFNodePtr& nodes) {
    Vec3f reach;
    for (const NodePtr& node : nodes) {
        Matrix fromWorld;
        if (node->getParent() != NullFC) invertAffine(node->getParent()->getToWorld(), fromWorld);
        for (UInt32 row = 0; row < 3; ++row) {
            const Vec3f axis(fromWorld[0][row], fromWorld[1][row], fromWorld[2][row]);
            reach[row] = std::max(reach[row], axis.length());
        }
    }
    return reach;
}

} // namespace

void Camboard::initMethod() {
    RenderAction::registerEnterDefault(getClassType(), makeFunctor<Camboard>(&Camboard::renderEnter));
    RenderAction::registerLeaveDefault(getClassType(), makeFunctor<Camboard>(&Camboard::renderLeave));
    IntersectAction::registerEnterDefault(getClassType(), makeFunctor<Camboard>(&Camboard::intersectEnter));
}

Real32 Camboard::calcSize(Real32 viewHeight) const {
    // The near limit comes first, which is then what NaN counts as.
    return getScale() * std::min(getFarLimit(), std::max(getNearLimit(), viewHeight));
}

bool Camboard::calcMatrix(const DrawActionBase* action, const Matrix& toWorld, Matrix& result) const {
    View view;
    Matrix cameraToWorld, fromWorld;
    if (!getView(action, view) || !invertAffine(view.viewing, cameraToWorld) || !invertAffine(toWorld, fromWorld))
        return false;
    Pnt3f worldPosition;
    toWorld.multMatrixPnt(getPosition(), worldPosition);
    const Real32 size = calcSize(getViewHeight(view, cameraToWorld, worldPosition));

    Matrix matrix;
    matrix.setTranslate(getPosition());
    for (UInt32 i = 0; i < 3; ++i) {
        Vec3f axis = getColumn(cameraToWorld, i);
        axis *= size / axis.length();
        fromWorld.multMatrixVec(axis, axis);
        for (UInt32 row = 0; row < 3; ++row) matrix[i][row] = axis[row];
    }
    if (size == 0.0f || !isFinite(matrix)) return false;
    result = matrix;
    return true;
}

void Camboard::changed(BitVector whichField, UInt32 origin) {
    if (whichField & (PositionFieldMask | ScaleFieldMask | NearLimitFieldMask | FarLimitFieldMask)) invalidateVolume();
    Inherited::changed(whichField, origin);
}

void Camboard::accumulateMatrix(Matrix& result) {
    Matrix matrix;
    matrix.setTranslate(getPosition());
    matrix.setScale(calcSize(1.0f));
    if (isFinite(matrix)) result.mult(matrix);
}

void Camboard::adjustVolume(Volume& volume) {
    if (volume.isEmpty()) return;
    const Real32 greatest = 1e18f;
    const Real32 radius = getReach(volume) * std::max(std::fabs(calcSize(0.0f)), std::fabs(calcSize(greatest)));
    const Vec3f reach = getReachOfUnitBall(getParents());
    volume.setEmpty();
    if (!isFinite(getPosition()) || std::isnan(radius)) return;
    Vec3f half;
    for (UInt32 axis = 0; axis < 3; ++axis) half[axis] = std::min(greatest, radius * reach[axis]);
    volume.extendBy(getPosition() - half);
    volume.extendBy(getPosition() + half);
}

Action::ResultE Camboard::renderEnter(Action* action) { return enterBoard(*this, action); }

Action::ResultE Camboard::renderLeave(Action* action) { return leaveBoard(action); }

Action::ResultE Camboard::intersectEnter(Action*) { return Action::Skip; }

} // namespace osg
