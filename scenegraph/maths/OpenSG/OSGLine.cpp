#include <OpenSG/OSGLine.h>

#include <OpenSG/OSGBoxVolume.h>

#include <utility>

namespace osg {

Pnt3f Line::getClosestPoint(const Pnt3f& point) const { return position + direction * direction.dot(point - position); }

bool Line::intersect(const Pnt3f& v0, const Pnt3f& v1, const Pnt3f& v2, Real32& t, Vec3f* normal) const {
    const Real32 smallestDeterminant = 1e-10f;
    const Vec3f edge1 = v1 - v0;
    const Vec3f edge2 = v2 - v0;
    const Vec3f p = direction.cross(edge2);
    const Real32 determinant = edge1.dot(p);
    // Written so that NaN is a miss, here and below.
    if (!(osgabs(determinant) > smallestDeterminant)) return false;
    const Real32 inverse = 1.0f / determinant;
    const Vec3f toPosition = position - v0;
    const Real32 u = toPosition.dot(p) * inverse;
    if (!(u >= 0.0f && u <= 1.0f)) return false;
    const Vec3f q = toPosition.cross(edge1);
    const Real32 v = direction.dot(q) * inverse;
    if (!(v >= 0.0f && u + v <= 1.0f)) return false;
    t = edge2.dot(q) * inverse;
    if (normal) {
        *normal = edge1.cross(edge2);
        normal->normalize();
    }
    return true;
}

bool Line::intersect(const BoxVolume& box, Real32& enter, Real32& exit) const {
    enter = 0.0f;
    exit = Inf;
    if (box.isEmpty()) return false;
    for (UInt32 axis = 0; axis < 3; ++axis) {
        const Real32 lower = box.getMin()[axis] - position[axis];
        const Real32 upper = box.getMax()[axis] - position[axis];
        if (osgabs(direction[axis]) <= Eps) {
            if (lower > 0.0f || upper < 0.0f) return false;
            continue;
        }
        const Real32 inverse = 1.0f / direction[axis];
        Real32 first = lower * inverse;
        Real32 second = upper * inverse;
        if (first > second) std::swap(first, second);
        enter = osgMax(first, enter);
        exit = osgMin(second, exit);
    }
    return enter <= exit;
}

} // namespace osg
