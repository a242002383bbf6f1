#include <OpenSG/OSGPlane.h>

#include <OpenSG/OSGLine.h>

namespace osg {

bool Plane::intersect(const Line& line, Real32& t) const {
    const Real32 slope = normal.dot(line.getDirection());
    const Real32 ahead = normal.dot(normal * distanceFromOrigin - Vec3f(line.getPosition()));
    if (slope == 0.0f && ahead != 0.0f) return false;
    t = ahead == 0.0f ? 0.0f : ahead / slope;
    // NaN is a miss, too.
    return t >= 0.0f;
}

} // namespace osg
