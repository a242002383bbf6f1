#pragma once

#include <OpenSG/OSGVector.h>

/// Vector arithmetic with a fixed order of operations, each a sum or product rounded to single
/// precision from left to right. The scene graph's own operators leave that order open.
namespace tesk::measurement::detail {

/// The vector from `from` to `to`, to - from.
inline osg::Vec3f difference(const osg::Pnt3f& to, const osg::Pnt3f& from) {
    return osg::Vec3f(to[0] - from[0], to[1] - from[1], to[2] - from[2]);
}

inline float dot(const osg::Vec3f& a, const osg::Vec3f& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

inline float squaredLength(const osg::Vec3f& a) { return dot(a, a); }

inline osg::Vec3f cross(const osg::Vec3f& a, const osg::Vec3f& b) {
    return osg::Vec3f(a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]);
}

inline osg::Vec3f scaled(float factor, const osg::Vec3f& a) {
    return osg::Vec3f(factor * a[0], factor * a[1], factor * a[2]);
}

/// origin + parameter * direction.
inline osg::Pnt3f pointAt(const osg::Pnt3f& origin, float parameter, const osg::Vec3f& direction) {
    return osg::Pnt3f(origin[0] + parameter * direction[0], origin[1] + parameter * direction[1],
                      origin[2] + parameter * direction[2]);
}

/// origin + u * a + w * b.
inline osg::Pnt3f pointAt(const osg::Pnt3f& origin, float u, const osg::Vec3f& a, float w, const osg::Vec3f& b) {
    return pointAt(pointAt(origin, u, a), w, b);
}

} // namespace tesk::measurement::detail
