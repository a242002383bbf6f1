#pragma once

#include <OpenSG/OSGSystemDef.h>
#include <OpenSG/OSGVector.h>

namespace osg {

class Line;

/// The points x with normal . x = distance from the origin. The normal is normalised.
class OSG_SYSTEMLIB_DLLMAPPING Plane {
public:
    /// The plane z = 0.
    Plane() = default;
    Plane(const Vec3f& newNormal, const Pnt3f& point) { set(newNormal, point); }
    Plane(const Vec3f& newNormal, Real32 newDistance) { set(newNormal, newDistance); }
    /// The normal is that of a counter-clockwise triangle.
    Plane(const Pnt3f& p0, const Pnt3f& p1, const Pnt3f& p2) { set((p1 - p0).cross(p2 - p0), p0); }

    void set(const Vec3f& newNormal, Real32 newDistance) {
        normal = newNormal;
        normal.normalize();
        distanceFromOrigin = newDistance;
    }
    void set(const Vec3f& newNormal, const Pnt3f& point) {
        set(newNormal, 0.0f);
        distanceFromOrigin = normal.dot(point);
    }

    const Vec3f& getNormal() const { return normal; }
    Real32 getDistanceFromOrigin() const { return distanceFromOrigin; }

    /// Positive on the side that the normal points to.
    Real32 distance(const Pnt3f& point) const { return normal.dot(point) - distanceFromOrigin; }
    bool isInHalfSpace(const Pnt3f& point) const { return distance(point) >= 0.0f; }
    /// Where the line, taken as a ray from its position, meets the plane. False for a parallel line,
    /// `t` then stays as it was, and for a plane behind the position, with a negative `t`. A line
    /// in the plane meets it at 0.
    bool intersect(const Line& line, Real32& t) const;

private:
    Vec3f normal{0.0f, 0.0f, 1.0f};
    Real32 distanceFromOrigin = 0.0f;
};

} // namespace osg
