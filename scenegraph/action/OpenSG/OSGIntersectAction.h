#pragma once

#include <OpenSG/OSGAction.h>
#include <OpenSG/OSGLine.h>

namespace osg {

/// Which triangle of a scene a ray hits first.
///
/// The line is in the coordinates above the node that apply() gets: world coordinates for a scene's root. Triangles
/// are hit from both sides at distances from 0 to the greatest one; of equal distances the later triangle counts.
/// Lines and points are never hit. A Switch shows its chosen child, a DistanceLOD all of its children. What lies
/// outside a node's volume is not found, so volumes must be up to date. Every apply() starts anew.
///
/// \code
/// const std::unique_ptr<IntersectAction> action(IntersectAction::create(line));
/// action->apply(root);
/// if (action->didHit()) select(action->getHitObject(), action->getHitPoint());
/// \endcode
class OSG_SYSTEMLIB_DLLMAPPING IntersectAction : public Action {
public:
    /// Delete the action after its use.
    static IntersectAction* create();
    static IntersectAction* create(const Line& line, Real32 greatestDistance = Inf);

    /// What every intersect action does when it enters, and leaves, a node with a core of exactly this type. A core
    /// that places its subtree hands the line on in the subtree's coordinates, with setLine() and scale(), and takes it
    /// back.
    static void registerEnterDefault(const FieldContainerType& type, const Functor& functor);
    static void registerLeaveDefault(const FieldContainerType& type, const Functor& functor);

    /// The greatest distance is in the coordinates of the line.
    void setLine(const Line& newLine, Real32 greatestDistance = Inf);
    /// In a functor: the line in the coordinates above the current node.
    const Line& getLine() const { return line; }
    Real32 getMaxDist() const { return maxDistance; }
    /// Multiplies all distances, for a line in other units.
    void scale(Real32 factor);

    bool didHit() const { return hit; }
    /// Distance along the line; -1 without a hit.
    Real32 getHitT() const { return hitDistance; }
    /// On the line, in its coordinates; the origin without a hit.
    Pnt3f getHitPoint() const;
    /// Normal of the triangle's plane in the object's local coordinates.
    Vec3f getHitNormal() const { return hitNormal; }
    NodePtr getHitObject() const { return hitObject; }
    /// Number of the triangle as TriangleIterator counts; -1 without a hit.
    Int32 getHitTriangle() const { return hitTriangle; }

    /// In a functor: where the line enters and leaves the node's volume. Skip when nothing in there can be hit first.
    ResultE setEnterLeave(Real32 enter, Real32 leave);
    /// In a functor: reports a hit at this distance, which counts unless there is a nearer one.
    void setHit(Real32 distance, const NodePtr& object, Int32 triangle, const Vec3f& normal);

protected:
    IntersectAction() = default;

    const FunctorTable& getFunctors() const override { return getDefaultFunctors(); }
    ResultE start() override;

private:
    static FunctorTable& getDefaultFunctors();

    Line line;
    Real32 maxDistance = Inf;
    bool hit = false;
    Real32 hitDistance = -1.0f;
    NodePtr hitObject;
    Int32 hitTriangle = -1;
    Vec3f hitNormal;
};

} // namespace osg
