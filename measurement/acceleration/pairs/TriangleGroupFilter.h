#pragma once

#include <measurement/acceleration/pairs/CompactTree.h>
#include <measurement/acceleration/points/PointDistanceFilter.h>
#include <measurement/acceleration/vector/InstructionSet.h>

#include <cstdint>

namespace tesk::measurement::acceleration {

/// Up to eight triangles side by side, the last one repeated in lanes that are left over.
using TriangleGroup = PrimitiveLanes<Triangle>;

TriangleGroup createTriangleGroup(const CompactTree& tree, const CompactTree::Group& group);

/// What is known of the pairs of triangles of two groups.
struct GroupGap {
    /// A point near both.
    Quad origin;
    /// Of length 1 and at right angles, the first from the first group to the second.
    Quad directions[3];
    /// What a gap along the first direction is taken less for.
    float slackOfLength;
    /// Beyond which squared gap a pair does not matter.
    float farthest;
};

/// For each triangle of the first group, one bit for each of the second: whether the pair may matter.
///
/// What does not has a gap between the boxes, or one along the first direction together with one across it: along the
/// line that the middles make, or at right angles to an edge.
void findNear(const TriangleGroup& first, const TriangleGroup& second, const GroupGap& gap, InstructionSet set,
              std::uint8_t (&near)[8]);

} // namespace tesk::measurement::acceleration
