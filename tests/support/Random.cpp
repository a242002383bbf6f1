#include <support/Random.h>

#include <cmath>
#include <limits>

namespace tesk::test {

using measurement::Segment;
using measurement::Triangle;

float Random::real(float low, float high) {
    const float fraction = static_cast<float>(generator() >> 8) * 0x1p-24f;
    return low + fraction * (high - low);
}

std::uint32_t Random::below(std::uint32_t count) { return static_cast<std::uint32_t>(generator()) % count; }

osg::Pnt3f Random::point(float extent) {
    // One statement each: the order in which arguments are evaluated is open.
    const float x = real(-extent, extent);
    const float y = real(-extent, extent);
    const float z = real(-extent, extent);
    return {x, y, z};
}

osg::Vec3f Random::vector(float extent) { return osg::Vec3f(point(extent)); }

Segment Random::segment(float extent) {
    const osg::Pnt3f start = point(extent);
    return {start, point(extent)};
}

Triangle Random::triangle(float extent) {
    const osg::Pnt3f p0 = point(extent);
    const osg::Pnt3f p1 = point(extent);
    return {p0, p1, point(extent)};
}

Triangle Random::triangle(Kind kind, float extent) {
    if (kind == Kind::huge) return triangle(1e6f * extent);
    Triangle result = triangle(extent);
    osg::Pnt3f* const vertices[] = {&result.p0, &result.p1, &result.p2};
    const std::uint32_t index = below(3);
    osg::Pnt3f& vertex = *vertices[index];
    const osg::Pnt3f next = *vertices[(index + 1) % 3];
    switch (kind) {
    case Kind::ordinary:
    case Kind::huge:
        break;
    case Kind::needle:
        result.p2 = result.p1 + vector(1e-5f * extent);
        break;
    case Kind::tiny:
        result.p1 = result.p0 + vector(1e-6f * extent);
        result.p2 = result.p0 + vector(1e-6f * extent);
        break;
    case Kind::collinear:
        result.p2 = result.p0 + (result.p1 - result.p0) * real(-1.0f, 2.0f);
        break;
    case Kind::coincident:
        vertex = next;
        if (chance(0.3f)) result = {next, next, next};
        break;
    case Kind::farOff:
        for (osg::Pnt3f* each : vertices) *each += osg::Vec3f(1e5f, 1e5f, 1e5f);
        break;
    case Kind::lattice:
        for (osg::Pnt3f* each : vertices)
            *each = osg::Pnt3f(std::round((*each)[0]), std::round((*each)[1]), std::round((*each)[2]));
        break;
    case Kind::notFinite:
        vertex[below(3)] = notFinite();
        break;
    }
    return result;
}

float Random::notFinite() {
    const float infinity = std::numeric_limits<float>::infinity();
    const float values[] = {std::numeric_limits<float>::quiet_NaN(), infinity, -infinity};
    return values[below(3)];
}

} // namespace tesk::test
