#include <measurement/acceleration/SegmentFilter.h>

#include <measurement/acceleration/RoundingSlack.h>
#include <measurement/geometry/detail/VectorMath.h>

#include <cmath>
#include <limits>

#define TESK_KERNEL <measurement/acceleration/SegmentFilterLanes.h>
#include <measurement/acceleration/CompileKernel.h>

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

void BlurredBoxLanes::set(std::size_t lane, const BlurredBox& box) {
    boxes.low.set(static_cast<int>(lane), {box.box.min[0], box.box.min[1], box.box.min[2]});
    boxes.high.set(static_cast<int>(lane), {box.box.max[0], box.box.max[1], box.box.max[2]});
    blurs[lane] = box.blur;
}

BlurredBox BlurredBoxLanes::get(std::size_t lane) const {
    return {{Quad{boxes.low.x[lane], boxes.low.y[lane], boxes.low.z[lane]},
             Quad{boxes.high.x[lane], boxes.high.y[lane], boxes.high.z[lane]}},
            blurs[lane]};
}

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

unsigned findNear(const BlurredBoxLanes& boxes, const BlurredBox& other, const SearchReach& reach, InstructionSet set,
                  float (&bounds)[8]) {
    return TESK_CALL_KERNEL(set, findNearBoxes, boxes, other, reach, bounds);
}

unsigned findNear(const PrimitiveLanes<Triangle>& triangles, const Segment& segment, float blur,
                  const SearchReach& reach, InstructionSet set, float (&distances)[8]) {
    return TESK_CALL_KERNEL(set, findNearTriangles, triangles, segment, blur, reach, distances);
}

} // namespace tesk::measurement::acceleration
