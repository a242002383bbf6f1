#pragma once

#include <measurement/acceleration/pairs/LazyTree.h>
#include <measurement/acceleration/pairs/NodePairQueue.h>
#include <measurement/acceleration/pairs/TriangleSpan.h>
#include <measurement/acceleration/vector/InstructionSet.h>

#include <cstdint>
#include <vector>

namespace tesk::measurement::acceleration {

class PairSelection;

/// The search of DistanceBoundingVolumeTree on trees that are split as it goes: same result, same lines on standard
/// output, from the same pairs in the same order.
///
/// Exact distances come from DistanceTriangleTriangle; pairs of triangles that cannot matter are spared it by
/// isBeyond() and mayMatter().
class OrderedSearch {
public:
    /// bound: as for DistanceBoundingVolumeTree. With a selection only the pairs of nodes that it touches are looked
    /// into. The result is the same as without if isCertain() says so; see TreeDistance.
    OrderedSearch(LazyTree& first, LazyTree& second, float bound, const PairSelection* selected = nullptr);

    /// Looks into pairs of nodes until that effort is spent: one for every triangle that is looked at to split nodes,
    /// `nodePairEffort` for every pair. Whether the search is over.
    bool run(std::uint64_t mostEffort);
    static constexpr std::uint64_t nodePairEffort = 64;

    const osg::Pnt3f& getClosestPoint1() const { return closestPoint1; }
    const osg::Pnt3f& getClosestPoint2() const { return closestPoint2; }
    float getSquaredDistance() const { return squaredDistance; }
    bool hasTouched() const { return touched; }
    /// With a selection: whether the result is certain to be the same as without. Nothing has touched where it is not.
    bool isCertain() const { return settled && !doubtful; }

    std::uint64_t getNodePairCount() const { return nodePairCount; }
    std::uint64_t getTrianglePairCount() const { return trianglePairCount; }

private:
    void openBoth(const NodePair& pair);
    void insertPair(std::uint32_t node1, std::uint32_t node2);
    void refineCandidates(const NodePair& pair);
    void testTriangles(const LazyTree::Node& node1, const LazyTree::Node& node2);
    void testTrianglePair(const TriangleSpan& span1, const TriangleSpan& span2, float gap);
    bool isBeyondThreshold(float lowerBound) const;
    std::uint64_t getEffort() const;

    LazyTree& tree1;
    LazyTree& tree2;
    const PairSelection* selection;
    float largestCoordinate;
    osg::Pnt3f closestPoint1{0.0f, 0.0f, 0.0f};
    osg::Pnt3f closestPoint2{0.0f, 0.0f, 0.0f};
    float squaredDistance = 0.0f;
    /// The lower bound of the pair of nodes that is being looked into.
    float pairBound = 0.0f;
    bool touched = false;
    bool doubtful = false;
    /// Whether the closest points are those of a distance up to the threshold, or none could be above it.
    bool settled = false;
    NodePairQueue candidates;
    InstructionSet instructionSet = getInstructionSet();
    /// Of the triangles of the second node that is being tested.
    std::vector<TriangleSpan> spans;
    std::uint64_t nodePairCount = 0;
    std::uint64_t trianglePairCount = 0;
};

} // namespace tesk::measurement::acceleration
