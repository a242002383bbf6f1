#include <measurement/acceleration/pairs/RoundingSlack.h>

#include <measurement/geometry/detail/VectorMath.h>

namespace tesk::measurement::acceleration {

namespace {

constexpr float unlimited = std::numeric_limits<float>::infinity();
constexpr float smallestSquare = 1e-15f;
// Below, the query may compute the area of a triangle as 0.
constexpr float smallestSine = 1e-3f;

bool isModerate(const osg::Pnt3f& point) {
    constexpr float largest = 1e15f;
    return std::fabs(point[0]) < largest && std::fabs(point[1]) < largest && std::fabs(point[2]) < largest;
}

} // namespace

float calcBlur(const Triangle& triangle) {
    if (!isModerate(triangle.p0) || !isModerate(triangle.p1) || !isModerate(triangle.p2)) return unlimited;
    const osg::Vec3f edge0 = detail::difference(triangle.p1, triangle.p0);
    const osg::Vec3f edge1 = detail::difference(triangle.p2, triangle.p0);
    const float a00 = detail::squaredLength(edge0), a11 = detail::squaredLength(edge1);
    if (!(a00 > smallestSquare && a11 > smallestSquare)) return unlimited;
    const float squaredSine = detail::squaredLength(detail::cross(edge0, edge1)) / a00 / a11;
    return squaredSine >= smallestSine * smallestSine ? 1.0f / std::sqrt(squaredSine) : unlimited;
}

float calcBlur(const Segment& segment) {
    const float squaredLength = detail::squaredLength(detail::difference(segment.end, segment.start));
    const bool isClear = isModerate(segment.start) && isModerate(segment.end) &&
                         (squaredLength == 0.0f || squaredLength > smallestSquare);
    return isClear ? 0.0f : unlimited;
}

} // namespace tesk::measurement::acceleration
