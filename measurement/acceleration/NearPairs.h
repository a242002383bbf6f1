#pragma once

#include <measurement/acceleration/CompactTree.h>
#include <measurement/acceleration/InstructionSet.h>

#include <cstdint>
#include <vector>

namespace tesk::measurement::acceleration {

struct TrianglePair {
    std::uint32_t first;
    std::uint32_t second;
    float squaredDistance;
};

/// All pairs of triangles, wild ones apart, for which DistanceTriangleTriangle may give a value up to a limit.
///
/// The limit is a little more than the smallest value of all, or than the bound when that is smaller.
class NearPairs {
public:
    /// How much greater the limit is. Any pair of node boxes with farthest corners no farther than the smallest value
    /// then holds a near pair, whatever the rounding.
    static constexpr float margin = 1e-4f;

    NearPairs(const TriangleMesh& first, const TriangleMesh& second, float bound);

    /// Finds the pairs. False when there are too many, when triangles touch, or when it takes too long.
    bool find();

    /// Ascending in the value.
    const std::vector<TrianglePair>& getPairs() const { return pairs; }
    float getLimit() const { return limit; }
    const CompactTree& getTree1() const { return tree1; }
    const CompactTree& getTree2() const { return tree2; }
    std::uint64_t getTrianglePairCount() const { return trianglePairCount; }

private:
    struct Candidate {
        float bound;
        std::uint32_t node1, node2;
    };

    bool isWorthwhile() const;
    float calcBound(const QuadBox& box1, const QuadBox& box2, float inverseSine) const;
    void insert(std::uint32_t node1, std::uint32_t node2);
    void refine(const Candidate& candidate);
    void testTriangles(const CompactTree::Node& node1, const CompactTree::Node& node2);
    void removeBeyondLimit();

    CompactTree tree1, tree2;
    float limit;
    float largestCoordinate = 0.0f;
    std::vector<Candidate> candidates;
    std::vector<TrianglePair> pairs;
    std::uint64_t trianglePairCount = 0;
    InstructionSet instructionSet = getInstructionSet();
};

} // namespace tesk::measurement::acceleration
