#pragma once

#include <measurement/acceleration/pairs/RoundingSlack.h>
#include <measurement/acceleration/points/PointDistanceFilter.h>
#include <measurement/acceleration/vector/InstructionSet.h>

namespace tesk::measurement::acceleration {

/// A box around triangles or segments.
struct BlurredBox {
    QuadBox box;
    /// How far rounding may mislead queries about what is in it, by the size of the coordinates.
    float blur = 0.0f;
};

/// Eight of them.
struct BlurredBoxLanes {
    BoxLanes boxes;
    float blurs[8];

    void set(std::size_t lane, const BlurredBox& box);
    BlurredBox get(std::size_t lane) const;
};

/// What a search looks for.
struct SearchReach {
    /// The greatest squared distance that matters.
    float limit;
    /// Of all segments and triangles whose blur is finite.
    float largestCoordinate;
};

/// One bit for each box, that of the first lowest: whether DistanceTriangleTriangle may give up to the limit for a
/// segment and a triangle of which one is in that box, the other in the other box. What it gives at least is stored, 0
/// where nothing is known.
unsigned findNear(const BlurredBoxLanes& boxes, const BlurredBox& other, const SearchReach& reach, InstructionSet set,
                  float (&bounds)[8]);

/// One bit for each triangle, none of which has a greater blur: whether DistanceTriangleTriangle gives up to the limit
/// for (start, end, end) and the triangle, or whether no corners of boxes around the two are farther apart. In the
/// first case the distance is stored; if they touch, perhaps a smaller one, which then means that as well.
unsigned findNear(const PrimitiveLanes<Triangle>& triangles, const Segment& segment, float blur,
                  const SearchReach& reach, InstructionSet set, float (&distances)[8]);

} // namespace tesk::measurement::acceleration
