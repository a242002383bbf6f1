#include <OpenSG/OSGIntersectAction.h>

#include <OpenSG/OSGComponentTransform.h>
#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGSwitch.h>
#include <OpenSG/OSGTransform.h>
#include <OpenSG/OSGTriangleIterator.h>

namespace osg {

namespace {

IntersectAction& asIntersection(Action* action) { return static_cast<IntersectAction&>(*action); }

Action::ResultE testVolume(IntersectAction& action) {
    Real32 enter, leave;
    if (!action.getActNode()->getVolume(true).intersect(action.getLine(), enter, leave)) return Action::Skip;
    return action.setEnterLeave(enter, leave);
}

Action::ResultE enterGroup(CNodePtr&, Action* action) { return testVolume(asIntersection(action)); }

void transformLine(IntersectAction& action, const Matrix& matrix) {
    Pnt3f position;
    Vec3f direction;
    // An inverse need not have exactly 1 in its corner.
    matrix.multFullMatrixPnt(action.getLine().getPosition(), position);
    matrix.multMatrixVec(action.getLine().getDirection(), direction);
    const Real32 length = direction.length();
    // A line does not normalise so short a direction itself.
    if (length < Eps) direction *= 1.0f / length;
    action.setLine(Line(position, direction), action.getMaxDist());
    action.scale(length);
}

Action::ResultE enterTransform(CNodePtr& core, Action* action) {
    IntersectAction& intersection = asIntersection(action);
    if (testVolume(intersection) == Action::Skip) return Action::Skip;
    Matrix toLocal;
    // A singular matrix leaves nothing to hit.
    if (!toLocal.invertFrom(static_cast<Transform&>(*core).getMatrix())) return Action::Skip;
    transformLine(intersection, toLocal);
    return Action::Continue;
}

Action::ResultE leaveTransform(CNodePtr& core, Action* action) {
    transformLine(asIntersection(action), static_cast<Transform&>(*core).getMatrix());
    return Action::Continue;
}

Action::ResultE enterSwitch(CNodePtr& core, Action* action) {
    const NodePtr node = action->getActNode();
    const Int32 choice = static_cast<Switch&>(*core).getChoice();
    if (choice == Switch::ALL) return Action::Continue;
    action->useNodeList();
    if (choice >= 0 && static_cast<UInt32>(choice) < node->getNChildren())
        action->addNode(node->getChild(static_cast<UInt32>(choice)));
    return Action::Continue;
}

Action::ResultE enterGeometry(CNodePtr& core, Action* action) {
    IntersectAction& intersection = asIntersection(action);
    if (testVolume(intersection) == Action::Skip) return Action::Skip;
    Geometry& geometry = static_cast<Geometry&>(*core);
    const TriangleIterator end = geometry.endTriangles();
    for (TriangleIterator triangle = geometry.beginTriangles(); triangle != end; ++triangle) {
        Real32 distance;
        Vec3f normal;
        if (intersection.getLine().intersect(triangle.getPosition(0), triangle.getPosition(1), triangle.getPosition(2),
                                             distance, &normal))
            intersection.setHit(distance, action->getActNode(), static_cast<Int32>(triangle.getIndex()), normal);
    }
    return Action::Continue;
}

} // namespace

Action::FunctorTable& IntersectAction::getDefaultFunctors() {
    static FunctorTable functors = [] {
        FunctorTable table;
        table.setEnter(Group::getClassType(), enterGroup);
        table.setEnter(Switch::getClassType(), enterSwitch);
        table.setEnter(Geometry::getClassType(), enterGeometry);
        for (const FieldContainerType* type : {&Transform::getClassType(), &ComponentTransform::getClassType()}) {
            table.setEnter(*type, enterTransform);
            table.setLeave(*type, leaveTransform);
        }
        return table;
    }();
    return functors;
}

IntersectAction* IntersectAction::create() { return new IntersectAction; }

IntersectAction* IntersectAction::create(const Line& line, Real32 greatestDistance) {
    IntersectAction* const action = create();
    action->setLine(line, greatestDistance);
    return action;
}

void IntersectAction::registerEnterDefault(const FieldContainerType& type, const Functor& functor) {
    getDefaultFunctors().setEnter(type, functor);
}

void IntersectAction::registerLeaveDefault(const FieldContainerType& type, const Functor& functor) {
    getDefaultFunctors().setLeave(type, functor);
}

void IntersectAction::setLine(const Line& newLine, Real32 greatestDistance) {
    line = newLine;
    maxDistance = greatestDistance;
}

void IntersectAction::scale(Real32 factor) {
    if (hit) hitDistance *= factor;
    maxDistance *= factor;
}

Action::ResultE IntersectAction::start() {
    hit = false;
    hitDistance = -1.0f;
    hitObject = NullFC;
    hitTriangle = -1;
    hitNormal.setNull();
    return Continue;
}

Pnt3f IntersectAction::getHitPoint() const {
    return hit ? line.getPosition() + line.getDirection() * hitDistance : Pnt3f();
}

Action::ResultE IntersectAction::setEnterLeave(Real32 enter, Real32 leave) {
    return leave < 0.0f || enter > maxDistance || (hit && enter > hitDistance) ? Skip : Continue;
}

void IntersectAction::setHit(Real32 distance, const NodePtr& object, Int32 triangle, const Vec3f& normal) {
    // <= lets the later of two equal hits win.
    if (!(distance >= 0.0f && distance <= (hit ? hitDistance : maxDistance))) return;
    hit = true;
    hitDistance = distance;
    hitObject = object;
    hitTriangle = triangle;
    hitNormal = normal;
}

} // namespace osg
