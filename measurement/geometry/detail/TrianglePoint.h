#pragma once

#include <measurement/geometry/Primitives.h>
#include <measurement/geometry/detail/VectorMath.h>

#include <cmath>

namespace tesk::measurement::detail {

/// A place p0 + s * edge0 + t * edge1 in a triangle and its squared distance from the query point.
struct TriangleCoordinates {
    float s;
    float t;
    float squaredDistance;
};

/// The squared distance between p0 + s * edge0 + t * edge1 and the query point, as a polynomial in s and t.
///
/// Each function below finds the minimum within one part of the parameter plane.
struct TrianglePointPolynomial {
    float a00, a01, a11, b0, b1, c;

    TrianglePointPolynomial(const osg::Vec3f& edge0, const osg::Vec3f& edge1, const osg::Vec3f& pointToP0)
        : a00(dot(edge0, edge0)), a01(dot(edge0, edge1)), a11(dot(edge1, edge1)), b0(dot(pointToP0, edge0)),
          b1(dot(pointToP0, edge1)), c(dot(pointToP0, pointToP0)) {}

    TriangleCoordinates atP0() const { return {0.0f, 0.0f, c}; }
    TriangleCoordinates atP1() const { return {1.0f, 0.0f, a00 + 2.0f * b0 + c}; }
    TriangleCoordinates atP2() const { return {0.0f, 1.0f, a11 + 2.0f * b1 + c}; }

    TriangleCoordinates at(float s, float t) const {
        return {s, t, s * (a00 * s + a01 * t + 2.0f * b0) + t * (a01 * s + a11 * t + 2.0f * b1) + c};
    }

    TriangleCoordinates withinEdge0() const {
        const float s = -b0 / a00;
        return {s, 0.0f, b0 * s + c};
    }

    TriangleCoordinates withinEdge1() const {
        const float t = -b1 / a11;
        return {0.0f, t, b1 * t + c};
    }

    float squaredLengthP1P2() const { return a00 - 2.0f * a01 + a11; }

    TriangleCoordinates onEdge0() const {
        if (!(b0 < 0.0f)) return atP0();
        return a00 <= -b0 ? atP1() : withinEdge0();
    }

    TriangleCoordinates onEdge1() const {
        if (!(b1 < 0.0f)) return atP0();
        return a11 <= -b1 ? atP2() : withinEdge1();
    }

    TriangleCoordinates beyondP0() const { return b0 < 0.0f ? onEdge0() : onEdge1(); }

    TriangleCoordinates beyondEdgeP1P2() const {
        const float numerator = (a11 + b1) - a01 - b0;
        if (numerator <= 0.0f) return atP2();
        const float denominator = squaredLengthP1P2();
        if (denominator <= numerator) return atP1();
        const float s = numerator / denominator;
        return at(s, 1.0f - s);
    }

    TriangleCoordinates beyondP1() const {
        const float alongEdge0 = a00 + b0;
        const float alongEdge1 = a01 + b1;
        if (alongEdge0 > alongEdge1) {
            const float numerator = alongEdge0 - alongEdge1;
            const float denominator = squaredLengthP1P2();
            if (denominator <= numerator) return atP2();
            const float t = numerator / denominator;
            return at(1.0f - t, t);
        }
        if (alongEdge0 <= 0.0f) return atP1();
        return b0 >= 0.0f ? atP0() : withinEdge0();
    }

    TriangleCoordinates beyondP2() const {
        const float alongEdge1 = a11 + b1;
        const float alongEdge0 = a01 + b0;
        if (alongEdge1 > alongEdge0) {
            const float numerator = alongEdge1 - alongEdge0;
            const float denominator = squaredLengthP1P2();
            if (denominator <= numerator) return atP1();
            const float s = numerator / denominator;
            return at(s, 1.0f - s);
        }
        if (alongEdge1 <= 0.0f) return atP2();
        return b1 >= 0.0f ? atP0() : withinEdge1();
    }

    /// The minimum over the triangle. NaN fails every test and takes the route after it.
    TriangleCoordinates minimum() const {
        const float determinant = std::fabs(a00 * a11 - a01 * a01);
        const float s = a01 * b1 - a11 * b0;
        const float t = a01 * b0 - a00 * b1;
        if (s + t <= determinant) {
            if (!(s >= 0.0f)) return t < 0.0f ? beyondP0() : onEdge1();
            if (!(t >= 0.0f)) return onEdge0();
            const float inverse = 1.0f / determinant;
            return at(s * inverse, t * inverse);
        }
        if (!(s >= 0.0f)) return beyondP2();
        return t >= 0.0f ? beyondEdgeP1P2() : beyondP1();
    }
};

struct TrianglePointResult {
    osg::Pnt3f closestPoint;
    float squaredDistance;
};

inline TrianglePointResult measureTrianglePoint(const Triangle& triangle, const osg::Pnt3f& point) {
    const osg::Vec3f edge0 = difference(triangle.p1, triangle.p0);
    const osg::Vec3f edge1 = difference(triangle.p2, triangle.p0);
    const TrianglePointPolynomial polynomial(edge0, edge1, difference(triangle.p0, point));
    const TriangleCoordinates nearest = polynomial.minimum();
    // Rounding may give slightly less than 0; NaN becomes 0 as well.
    const float squaredDistance = nearest.squaredDistance >= 0.0f ? nearest.squaredDistance : 0.0f;
    return {pointAt(triangle.p0, nearest.s, edge0, nearest.t, edge1), squaredDistance};
}

} // namespace tesk::measurement::detail
