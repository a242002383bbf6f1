#include <OpenSG/OSGPlane.h>

#include <OpenSG/OSGLine.h>

namespace osg {

bool Plane::intersect(const Line& line, Real32& t) const {
    const Real32 slope = normal.dot(line.getDirection());
    // NaN is a miss, too.
    if (!(osgabs(slope) > Eps)) return false;
    t = -distance(line.getPosition()) / slope;
    return true;
}

} // namespace osg
