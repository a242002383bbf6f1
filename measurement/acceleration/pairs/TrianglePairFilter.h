#pragma once

#include <measurement/acceleration/vector/InstructionSet.h>
#include <measurement/geometry/Primitives.h>

namespace tesk::measurement::acceleration {

/// The coordinates of a triangle's corners, axis by axis.
struct PackedTriangle {
    float x[3], y[3], z[3];

    explicit PackedTriangle(const Triangle& t)
        : x{t.p0[0], t.p1[0], t.p2[0]}, y{t.p0[1], t.p1[1], t.p2[1]}, z{t.p0[2], t.p1[2], t.p2[2]} {}
};

/// Whether a search with that best value so far has to see DistanceTriangleTriangle: whether one of the
/// six distances which that computes, before it ends at an edge of length zero, is below the best or means that the
/// triangles touch.
///
/// The six are computed side by side, with the operations of the query one by one.
bool mayMatter(const PackedTriangle& first, const PackedTriangle& second, float best, InstructionSet set);

/// The squared distance of the query; where the triangles touch perhaps a smaller one, which then means that as well.
float measureTrianglePair(const PackedTriangle& first, const PackedTriangle& second, InstructionSet set);

} // namespace tesk::measurement::acceleration
