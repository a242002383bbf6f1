#include <measurement/geometry/DistanceLineTriangle.h>

#include <measurement/geometry/detail/Constants.h>
#include <measurement/geometry/detail/LineTriangle.h>

namespace tesk::measurement {

DistanceLineTriangle::DistanceLineTriangle(const Line& line, const Triangle& triangle) { calcDistance(line, triangle); }

void DistanceLineTriangle::calcDistance(const Line& line, const Triangle& triangle) {
    const detail::LineTriangleResult result = detail::measureLineTriangle(line, triangle);
    squaredDistance = result.squaredDistance;
    lineParameter = result.lineParameter;
    if (!(squaredDistance < detail::largestFloat)) return;
    closestLinePoint = result.linePoint;
    closestTrianglePoint = result.trianglePoint;
}

} // namespace tesk::measurement
