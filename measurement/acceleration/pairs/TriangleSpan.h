#pragma once

#include <measurement/acceleration/pairs/RoundingSlack.h>

#include <algorithm>

namespace tesk::measurement::acceleration {

/// A triangle with what tells fast that others are far from it.
struct TriangleSpan {
    std::uint32_t number;
    Quad corners[3];
    QuadBox box;
    float blur;

    TriangleSpan(const TriangleMesh& mesh, std::uint32_t triangle)
        : number(triangle), corners{toQuad(mesh.corner(triangle, 0)), toQuad(mesh.corner(triangle, 1)),
                                    toQuad(mesh.corner(triangle, 2))},
          box(quadBoxOf(corners[0], corners[1], corners[2])), blur(calcBlur(mesh[triangle])) {}
};

/// Whether DistanceTriangleTriangle answers more than the limit. False where that is not sure.
///
/// Seen along the line of their centres, between which there is then a gap. largestCoordinate: of both triangles.
inline bool isBeyond(const TriangleSpan& a, const TriangleSpan& b, float limit, float largestCoordinate) {
    const float blur = std::max(a.blur, b.blur);
    // All vectors begin at the same corner, which keeps them short.
    const Quad edge0 = a.corners[1] - a.corners[0], edge1 = a.corners[2] - a.corners[0];
    const Quad b0 = b.corners[0] - a.corners[0], b1 = b.corners[1] - a.corners[0], b2 = b.corners[2] - a.corners[0];
    const Quad direction = (b0 + b1 + b2) - (edge0 + edge1);
    const auto along = [&](const Quad& offset) { return sum(direction * offset); };
    const float gap = std::min({along(b0), along(b1), along(b2)}) - std::max({0.0f, along(edge0), along(edge1)});
    const float squaredLength = along(direction);
    if (!(gap > 0.0f && squaredLength > 1e-30f)) return false;
    const RoundingSlack slack(a.box, b.box, blur, largestCoordinate);
    return slack.calcBound(gap / squaredLength * gap) > limit;
}

} // namespace tesk::measurement::acceleration
