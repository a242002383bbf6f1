#pragma once

#include <measurement/geometry/Primitives.h>

#include <gtest/gtest.h>

#include <cstring>
#include <iomanip>
#include <limits>
#include <ostream>

namespace tesk::measurement {

inline std::ostream& operator<<(std::ostream& stream, const Segment& segment) {
    return stream << "segment (" << segment.start << ") (" << segment.end << ")";
}

inline std::ostream& operator<<(std::ostream& stream, const Triangle& triangle) {
    return stream << "triangle (" << triangle.p0 << ") (" << triangle.p1 << ") (" << triangle.p2 << ")";
}

inline std::ostream& operator<<(std::ostream& stream, const Line& line) {
    return stream << "line (" << line.origin << ") direction (" << line.direction << ")";
}

} // namespace tesk::measurement

namespace tesk::test {

namespace detail {

inline bool haveSameBits(float a, float b) { return std::memcmp(&a, &b, sizeof a) == 0 || (a != a && b != b); }

inline bool haveSameBits(const osg::Pnt3f& a, const osg::Pnt3f& b) {
    return haveSameBits(a[0], b[0]) && haveSameBits(a[1], b[1]) && haveSameBits(a[2], b[2]);
}

inline bool haveSameBits(const measurement::Segment& a, const measurement::Segment& b) {
    return haveSameBits(a.start, b.start) && haveSameBits(a.end, b.end);
}

inline bool haveSameBits(const measurement::Triangle& a, const measurement::Triangle& b) {
    return haveSameBits(a.p0, b.p0) && haveSameBits(a.p1, b.p1) && haveSameBits(a.p2, b.p2);
}

} // namespace detail

/// Whether two numbers, points, segments or triangles have the same bits. NaN equals NaN; 0 differs from -0.
template <class T> testing::AssertionResult identical(const T& a, const T& b) {
    if (detail::haveSameBits(a, b)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << std::setprecision(std::numeric_limits<float>::max_digits10) << a
                                       << " differs from " << b;
}

} // namespace tesk::test
