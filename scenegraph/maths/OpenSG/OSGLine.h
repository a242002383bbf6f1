#pragma once

#include <OpenSG/OSGSystemDef.h>
#include <OpenSG/OSGVector.h>

namespace osg {

class BoxVolume;

/// A line without ends through a position. The direction is normalised; a zero one stays zero. Line
/// parameters are signed distances from the position.
class OSG_SYSTEMLIB_DLLMAPPING Line {
public:
    /// The z axis.
    Line() = default;
    Line(const Pnt3f& throughPosition, const Vec3f& alongDirection) { setValue(throughPosition, alongDirection); }
    /// From the first through the second point.
    Line(const Pnt3f& from, const Pnt3f& to) { setValue(from, to); }

    void setValue(const Pnt3f& newPosition, const Vec3f& newDirection) {
        position = newPosition;
        direction = newDirection;
        direction.normalize();
    }
    void setValue(const Pnt3f& from, const Pnt3f& to) { setValue(from, to - from); }

    const Pnt3f& getPosition() const { return position; }
    const Vec3f& getDirection() const { return direction; }

    /// A zero direction gives the position.
    Pnt3f getClosestPoint(const Pnt3f& point) const;
    Real32 distance(const Pnt3f& point) const { return getClosestPoint(point).dist(point); }

    /// Where the line meets a triangle, from either side and also behind the position. The normal is
    /// (v1 - v0) x (v2 - v0), normalised. Parallel and tiny triangles are missed; the results then
    /// stay as they were.
    ///
    /// Method: Moeller and Trumbore, Fast, Minimum Storage Ray/Triangle Intersection, 1997.
    bool intersect(const Pnt3f& v0, const Pnt3f& v1, const Pnt3f& v2, Real32& t, Vec3f* normal = nullptr) const;
    /// Where the line, taken as a ray from its position, enters and leaves a box; it enters at 0 when
    /// it starts inside. The results are undefined on a miss. An empty box is missed, the bounds of
    /// any other count. A direction component up to Eps counts as parallel.
    ///
    /// Method: slabs (Kay and Kajiya, Ray Tracing Complex Scenes, 1986).
    bool intersect(const BoxVolume& box, Real32& enter, Real32& exit) const;

private:
    Pnt3f position;
    Vec3f direction{0.0f, 0.0f, 1.0f};
};

} // namespace osg
