#pragma once

#include <measurement/acceleration/vector/InstructionSet.h>
#include <measurement/acceleration/vector/QuadBox.h>
#include <measurement/geometry/Primitives.h>

/// What a search for the primitive nearest a point may pass over.
///
/// A bound for a box is less than, or equal to, any squared distance that DistanceTrianglePoint or DistanceSegmentPoint
/// computes, with a valid point, for a primitive with its vertices in the box, though not its distance to the box
/// itself. Let F be the distance of the box's farthest corner. Vectors from the point to the vertices are at most F
/// long and edges 2 F; the computed distance is a sum of at most twenty products of such vectors, together less than
/// 25 F^2, for parameters from 0 to 1. So it is below the exact distance at these parameters by less than 1e-5 F^2, or
/// than 1e-42 where products underflow. Margins are several times that. Where a sum might overflow, 16 F^2 does: then
/// the bound is minus infinity or NaN. A primitive with a coordinate that is not finite has no valid point, and boxes
/// need not hold it.
///
/// So whoever compares passes over what has a bound greater than the best, and never goes by a comparison with NaN.
namespace tesk::measurement::acceleration {

/// A sixteenth of the margin's part of F^2.
constexpr float boundMargin = 2.5e-6f;
constexpr float smallestMargin = 1e-37f;

inline float lowerBound(const QuadBox& box, const Quad& point) {
    const Quad below = box.min - point, above = point - box.max;
    const Quad gap = larger(larger(below, above), Quad{});
    const Quad reach = smaller(below, above);
    return sum(gap * gap) - (16.0f * sum(reach * reach) * boundMargin + smallestMargin);
}

/// Eight points, axis by axis.
struct PointLanes {
    float x[8], y[8], z[8];

    void set(int lane, const osg::Pnt3f& point) {
        x[lane] = point[0];
        y[lane] = point[1];
        z[lane] = point[2];
    }
};

template <class Primitive> constexpr std::size_t cornerCount = 0;
template <> inline constexpr std::size_t cornerCount<Triangle> = 3;
template <> inline constexpr std::size_t cornerCount<Segment> = 2;

/// Eight primitives.
template <class Primitive> struct PrimitiveLanes { PointLanes corners[cornerCount<Primitive>]; };

struct BoxLanes {
    PointLanes low, high;
};

/// One bit for each primitive, that of the first lowest: whether its squared distance is at most the best. Triangles
/// out of bounds have none, be it that their point is not valid.
unsigned findNear(const PrimitiveLanes<Triangle>& triangles, const osg::Pnt3f& point, float best, InstructionSet set);
unsigned findNear(const PrimitiveLanes<Segment>& segments, const osg::Pnt3f& point, float best, InstructionSet set);
/// The same for the bounds of boxes, all of which are stored.
unsigned findNear(const BoxLanes& boxes, const osg::Pnt3f& point, float best, InstructionSet set, float (&bounds)[8]);

} // namespace tesk::measurement::acceleration
