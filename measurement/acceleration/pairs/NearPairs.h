#pragma once

#include <measurement/acceleration/pairs/CompactTree.h>
#include <measurement/acceleration/pairs/LazyTree.h>
#include <measurement/acceleration/pairs/RoundingSlack.h>
#include <measurement/acceleration/pairs/TrianglePairFilter.h>

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

    /// Of the trees nothing but the meshes and their boxes is used.
    NearPairs(const LazyTree& first, const LazyTree& second, float bound);

    /// Finds the pairs. False when there are too many or it takes too long.
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

    struct ComesAfter {
        bool operator()(const Candidate& a, const Candidate& b) const { return a.bound > b.bound; }
    };

    /// A triangle, its box and where it lies along a direction.
    struct Operand {
        std::uint32_t triangle;
        QuadBox box;
        Range range;

        Operand(const TriangleMesh& mesh, std::uint32_t number, const Quad& origin, const Quad& direction);
    };

    bool isWorthwhile() const;
    RoundingSlack calcSlack(const QuadBox& a, const QuadBox& b, float inverseSine) const;
    /// Beyond which squared gap triangles in the two boxes cannot be near.
    float calcFarthest(const QuadBox& box1, const QuadBox& box2) const;
    void insert(std::uint32_t node1, std::uint32_t node2);
    void refine(const Candidate& candidate);
    void testTriangles(const CompactTree::Group& group1, const CompactTree::Group& group2);
    void testPair(std::uint32_t first, std::uint32_t second);
    void removeBeyondLimit();

    float limit;
    float largestCoordinate;
    CompactTree tree1, tree2;
    std::vector<Candidate> candidates;
    std::vector<TrianglePair> pairs;
    /// Of the triangles of the second group that is being tested.
    std::vector<Operand> operands;
    std::uint64_t trianglePairCount = 0;
    /// Pairs of nodes, groups and triangles looked at.
    std::uint64_t effort = 0;
    InstructionSet instructionSet = getInstructionSet();
};

} // namespace tesk::measurement::acceleration
