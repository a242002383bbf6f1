#pragma once

#include <measurement/acceleration/vector/QuadBox.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace tesk::measurement::acceleration {

/// What numbers about two sets of triangles, each in its box, must be taken less for, for rounding.
///
/// The size of the operands of DistanceTriangleTriangle is at most three times the reach, the distance of the farthest
/// corners; each value is a sum of a few products of them, each rounded by 2^-24 of itself. And a line may seem to
/// pierce a triangle that it misses by as much as the coordinates are rounded, the more the thinner the triangle is.
/// Gaps, too, are made from rounded numbers. From a reach on at which fourth powers may overflow the query may answer
/// anything.
struct RoundingSlack {
    static constexpr float largestSquaredReach = 1e18f;

    float squaredMiss;
    float ofSquare;
    float ofLength;

    /// inverseSine: the greatest of the triangles, 1 by the sine of the angle at the first corner.
    RoundingSlack(const QuadBox& a, const QuadBox& b, float inverseSine, float largestCoordinate) {
        constexpr float rounding = 4e-6f;
        const Quad farthest = larger(absolute(a.max - b.min), absolute(b.max - a.min));
        const float squaredReach = 9.0f * sum(farthest * farthest), reach = std::sqrt(squaredReach);
        const float miss = rounding * (reach + largestCoordinate) * inverseSine;
        squaredMiss = squaredReach < largestSquaredReach ? miss * miss : std::numeric_limits<float>::infinity();
        ofSquare = rounding * squaredReach;
        ofLength = rounding * reach;
    }

    /// What the query may answer at least for triangles with that gap. 0 where a number is NaN.
    float calcBound(float squaredGap) const { return squaredGap > squaredMiss ? squaredGap - ofSquare : 0.0f; }
};

/// 1 by the sine of the angle at the first corner, infinity for a triangle that is too thin, small, large or far from
/// finite for that to say much.
float calcBlur(const Triangle& triangle);
/// 0, or infinity for a segment that is short, but not of length zero, large or not finite.
float calcBlur(const Segment& segment);

inline float largestCoordinateOf(const QuadBox& box) {
    const Quad largest = larger(absolute(box.min), absolute(box.max));
    return std::max({largest[0], largest[1], largest[2]});
}

} // namespace tesk::measurement::acceleration
