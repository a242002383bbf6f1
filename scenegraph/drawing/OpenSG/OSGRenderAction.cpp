#include <OpenSG/OSGRenderAction.h>

#include <OpenSG/OSGBackground.h>
#include <OpenSG/OSGComponentTransform.h>
#include <OpenSG/OSGDirectionalLight.h>
#include <OpenSG/OSGDistanceLOD.h>
#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGSwitch.h>
#include <OpenSG/detail/DrawList.h>
#include <OpenSG/detail/Frustum.h>
#include <OpenSG/detail/Lights.h>
#include <OpenSG/detail/SceneDrawing.h>

#include <vector>

namespace osg {

/// What a traversal gathers, and what drawing keeps from one to the next.
struct RenderAction::Drawing {
    Frustum frustum;
    std::vector<Frustum::PlaneSet> planesToTest;
    DrawList list;
    Lights lights;
    SceneDrawing scene;

    void clear() {
        planesToTest.assign(1, Frustum::allPlanes);
        list.clear();
        lights.clear();
    }
};

namespace {

RenderAction& asRender(Action* action) { return static_cast<RenderAction&>(*action); }

/// Enters the children when something of the node is to be seen.
Action::ResultE enterGroup(CNodePtr&, Action* action) {
    if (asRender(action).pushVisibility()) return Action::Continue;
    // Nothing is left when entering skips.
    asRender(action).popVisibility();
    return Action::Skip;
}

Action::ResultE leaveGroup(CNodePtr&, Action* action) {
    asRender(action).popVisibility();
    return Action::Continue;
}

Action::ResultE enterTransform(CNodePtr& core, Action* action) {
    const Action::ResultE result = enterGroup(core, action);
    if (result == Action::Continue) asRender(action).push_matrix(static_cast<Transform&>(*core).getMatrix());
    return result;
}

Action::ResultE leaveTransform(CNodePtr& core, Action* action) {
    asRender(action).pop_matrix();
    return leaveGroup(core, action);
}

Action::ResultE enterLight(CNodePtr& core, Action* action) {
    const Action::ResultE result = enterGroup(core, action);
    if (result == Action::Continue) asRender(action).dropLight(&static_cast<DirectionalLight&>(*core));
    return result;
}

Action::ResultE leaveLight(CNodePtr& core, Action* action) {
    asRender(action).undropLight(&static_cast<DirectionalLight&>(*core));
    return leaveGroup(core, action);
}

void goOnWithChild(Action* action, Int64 index) {
    const NodePtr node = action->getActNode();
    action->useNodeList();
    if (index >= 0 && index < node->getNChildren()) action->addNode(node->getChild(static_cast<UInt32>(index)));
}

Action::ResultE enterSwitch(CNodePtr& core, Action* action) {
    const Int32 choice = static_cast<Switch&>(*core).getChoice();
    if (choice != Switch::ALL) goOnWithChild(action, choice);
    return enterGroup(core, action);
}

/// How many of the ranges the eye is beyond.
Int64 countRangesBelow(const MFReal32& ranges, Real32 distance) {
    Int64 count = 0;
    for (const Real32 range : ranges) {
        if (distance < range) break;
        ++count;
    }
    return count;
}

Action::ResultE enterDistanceLOD(CNodePtr& core, Action* action) {
    DistanceLOD& level = static_cast<DistanceLOD&>(*core);
    const Vec4f& eye = asRender(action).getCameraToWorld()[3];
    Pnt3f center;
    asRender(action).top_matrix().multMatrixPnt(level.getCenter(), center);
    const Real32 distance = center.dist(Pnt3f(eye[0], eye[1], eye[2]));
    const Int64 beyond = countRangesBelow(level.getRange(), distance);
    goOnWithChild(action, level.getRange().empty() ? -1 : beyond);
    return enterGroup(core, action);
}

Action::ResultE enterGeometry(CNodePtr& core, Action* action) {
    if (asRender(action).isVisible(action->getActNode().getCPtr()))
        asRender(action).dropGeometry(&static_cast<Geometry&>(*core));
    return Action::Continue;
}

} // namespace

Action::FunctorTable& RenderAction::getDefaultFunctors() {
    static FunctorTable functors = [] {
        FunctorTable table;
        const auto add = [&](const FieldContainerType& type, const Functor& enter, const Functor& leave) {
            table.setEnter(type, enter);
            table.setLeave(type, leave);
        };
        add(Group::getClassType(), enterGroup, leaveGroup);
        add(Transform::getClassType(), enterTransform, leaveTransform);
        add(ComponentTransform::getClassType(), enterTransform, leaveTransform);
        add(Switch::getClassType(), enterSwitch, leaveGroup);
        add(DistanceLOD::getClassType(), enterDistanceLOD, leaveGroup);
        add(DirectionalLight::getClassType(), enterLight, leaveLight);
        table.setEnter(Geometry::getClassType(), enterGeometry);
        return table;
    }();
    return functors;
}

RenderAction* RenderAction::create() { return new RenderAction; }

RenderAction::RenderAction() : drawing(std::make_unique<Drawing>()) { drawing->clear(); }

RenderAction::~RenderAction() = default;

void RenderAction::registerEnterDefault(const FieldContainerType& type, const Functor& functor) {
    getDefaultFunctors().setEnter(type, functor);
}

void RenderAction::registerLeaveDefault(const FieldContainerType& type, const Functor& functor) {
    getDefaultFunctors().setLeave(type, functor);
}

const Action::FunctorTable& RenderAction::getFunctors() const { return getDefaultFunctors(); }

Action::ResultE RenderAction::start() {
    drawing->clear();
    const ResultE result = DrawActionBase::start();
    if (result != Continue) return result;
    Matrix worldToClip = getProjection();
    worldToClip.mult(getWorldToCamera());
    drawing->frustum = Frustum(worldToClip);
    if (getBackground()) getBackground()->clear(this, getViewport());
    return Continue;
}

Action::ResultE RenderAction::stop(ResultE result) {
    drawing->list.sort(sortTrans);
    drawing->scene.draw(drawing->list, drawing->lights, getProjection(), getWorldToCamera(), zWriteTrans);
    drawing->clear();
    return DrawActionBase::stop(result);
}

void RenderAction::push_matrix(const Matrix& matrix) { drawing->list.pushMatrix(matrix); }

void RenderAction::pop_matrix() { drawing->list.popMatrix(); }

const Matrix& RenderAction::top_matrix() const { return drawing->list.getTopMatrix(); }

bool RenderAction::isVisible(Node* node) {
    Frustum::PlaneSet planes = drawing->planesToTest.back();
    return isVisible(node, planes);
}

bool RenderAction::isVisible(Node* node, UInt8& planesToTest) const {
    if (!getFrustumCulling() || planesToTest == 0) return true;
    DynamicVolume volume = node->getVolume(true);
    if (!volume.isValid() || volume.isEmpty() || volume.isInfinite() || volume.isAlwaysVisible()) {
        // Nothing is known about where the subtree is.
        planesToTest = Frustum::allPlanes;
        return true;
    }
    volume.transform(top_matrix());
    return drawing->frustum.isVisible(volume, planesToTest);
}

bool RenderAction::pushVisibility() {
    Frustum::PlaneSet planes = drawing->planesToTest.back();
    const bool visible = isVisible(getActNode().getCPtr(), planes);
    drawing->planesToTest.push_back(planes);
    return visible;
}

void RenderAction::popVisibility() {
    if (drawing->planesToTest.size() > 1) drawing->planesToTest.pop_back();
}

void RenderAction::dropGeometry(Geometry* geometry) {
    if (!geometry) return;
    Pnt3f center;
    getActNode()->getVolume(true).getCenter(center);
    top_matrix().multMatrixPnt(center);
    getWorldToCamera().multMatrixPnt(center);
    const UInt32 lightSet = localLights ? drawing->lights.getCurrentSet() : Lights::allLights;
    drawing->list.add(geometry, geometry->getMaterial().getCPtr(), lightSet, center[2]);
}

void RenderAction::dropLight(DirectionalLight* light) { drawing->lights.push(light, top_matrix()); }

void RenderAction::undropLight(DirectionalLight*) { drawing->lights.pop(); }

} // namespace osg
