#include <platform/cores/Transform3D.h>

#include <platform/cores/detail/Placing.h>

#include <OpenSG/OSGIntersectAction.h>
#include <OpenSG/OSGLine.h>

namespace osg {

TESK_CORE_DEF(Transform3D, Transform, TESK_TRANSFORM3D_FIELDS)

namespace {

/// Hands the action's line on into the frame that the matrix leads to.
void transformLine(IntersectAction& action, const Matrix& matrix) {
    Pnt3f position;
    Vec3f direction;
    matrix.multMatrixPnt(action.getLine().getPosition(), position);
    matrix.multMatrixVec(action.getLine().getDirection(), direction);
    action.setLine(Line(position, direction), action.getMaxDist());
    action.scale(direction.length());
}

} // namespace

void Transform3D::initMethod() {
    RenderAction::registerEnterDefault(getClassType(), makeFunctor<Transform3D>(&Transform3D::renderEnter));
    RenderAction::registerLeaveDefault(getClassType(), makeFunctor<Transform3D>(&Transform3D::renderLeave));
    IntersectAction::registerEnterDefault(getClassType(), makeFunctor<Transform3D>(&Transform3D::intersectEnter));
    IntersectAction::registerLeaveDefault(getClassType(), makeFunctor<Transform3D>(&Transform3D::intersectLeave));
}

void Transform3D::changed(BitVector whichField, UInt32 origin) {
    if (whichField & (TranslationFieldMask | RotationFieldMask | ScaleFieldMask)) {
        getMatrix().setTransform(getTranslation(), getRotation(), getScale());
        whichField |= MatrixFieldMask;
    }
    Inherited::changed(whichField, origin);
}

Action::ResultE Transform3D::renderEnter(Action* action) {
    RenderAction& render = static_cast<RenderAction&>(*action);
    if (!render.pushVisibility()) render.useNodeList();
    render.push_matrix(getMatrix());
    return Action::Continue;
}

Action::ResultE Transform3D::renderLeave(Action* action) { return leaveBoard(action); }

Action::ResultE Transform3D::intersectEnter(Action* action) {
    Matrix inverse;
    // A flattened subtree cannot be hit. The line stays as it is: no leaving follows.
    if (!invertAffine(getMatrix(), inverse)) return Action::Skip;
    transformLine(static_cast<IntersectAction&>(*action), inverse);
    return Action::Continue;
}

Action::ResultE Transform3D::intersectLeave(Action* action) {
    transformLine(static_cast<IntersectAction&>(*action), getMatrix());
    return Action::Continue;
}

} // namespace osg
