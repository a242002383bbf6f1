#pragma once

#include <measurement/acceleration/pairs/CompactTree.h>
#include <measurement/acceleration/pairs/LazyTree.h>
#include <measurement/acceleration/pairs/RoundingSlack.h>
#include <measurement/acceleration/pairs/TriangleGroupFilter.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace tesk::measurement::acceleration {

struct TrianglePair {
    std::uint32_t first;
    std::uint32_t second;
    float squaredDistance;
};

/// Pairs of triangles that were found near, and triangles of which that is not known.
struct NearTriangles {
    /// Ascending in the value.
    std::vector<TrianglePair> pairs;
    /// Up to which value, of pairs or of farthest corners of boxes that hold one, the pairs are all.
    float limit;
    std::vector<std::uint32_t> wild1;
    std::vector<std::uint32_t> wild2;
};

/// All pairs of triangles, wild ones apart, that matter to a search for the smallest value of DistanceTriangleTriangle:
/// those that have a value up to a limit, or boxes with no corners farther apart than that.
///
/// The limit is a little more than the smallest value of all, or than the bound when that is smaller. Where that would
/// be too many pairs it is less, if need be the smallest value itself.
class NearPairs {
public:
    /// How much greater the limit is. Any pair of node boxes with farthest corners no farther than the smallest value
    /// then holds a pair with a value up to the limit, whatever the rounding.
    static constexpr float margin = 1e-4f;

    /// Of the trees nothing but the meshes and their boxes is used. Fewer pairs than `most` are kept.
    NearPairs(const LazyTree& first, const LazyTree& second, float bound, std::size_t most);
    static std::size_t calcMostPairs(const LazyTree& first, const LazyTree& second);

    /// Finds the pairs. False when there are too many or it takes too long.
    bool find();

    /// What was found. Ends the search and leaves nothing here, for the memory is wanted elsewhere.
    NearTriangles takeResult() &&;
    /// Whether pairs within the margin were left out because they were too many.
    bool isCurtailed() const { return keptLimit < limit; }
    std::uint64_t getTrianglePairCount() const { return trianglePairCount; }

private:
    struct Candidate {
        float bound;
        std::uint32_t node1, node2;
    };

    struct ComesAfter {
        bool operator()(const Candidate& a, const Candidate& b) const { return a.bound > b.bound; }
    };

    /// Triangles of groups side by side, of some that were asked for last.
    class GroupCache {
    public:
        const TriangleGroup& get(const CompactTree& tree, const CompactTree::Group& group);

    private:
        struct Entry {
            std::uint32_t begin = LazyTree::none;
            TriangleGroup triangles{};
        };

        std::vector<Entry> entries = std::vector<Entry>(128);
    };

    bool isWorthwhile() const;
    RoundingSlack calcSlack(const QuadBox& a, const QuadBox& b, float inverseSine) const;
    /// Beyond which squared gap triangles in the two boxes cannot be near.
    float calcFarthest(const QuadBox& box1, const QuadBox& box2) const;
    Candidate createCandidate(std::uint32_t node1, std::uint32_t node2);
    void insert(const Candidate& candidate);
    void refine(const Candidate& candidate);
    void refineBoth(const Candidate& first, const Candidate& second, bool isSmall);
    void testTriangles(const CompactTree::Group& group1, const CompactTree::Group& group2);
    void testPair(std::uint32_t first, std::uint32_t second);
    bool isNear(const TrianglePair& pair) const;
    void removeFarPairs();
    void makeRoom();
    bool isOver() const;

    std::size_t mostPairs;
    std::uint64_t mostEffort;
    /// Beyond which value no pair matters.
    float limit;
    /// Beyond which value, of the pair and of farthest corners, no pair is kept.
    float keptLimit = std::numeric_limits<float>::infinity();
    float largestCoordinate;
    CompactTree tree1, tree2;
    std::vector<Candidate> candidates;
    std::vector<TrianglePair> pairs;
    GroupCache cache1, cache2;
    std::uint64_t trianglePairCount = 0;
    /// Pairs of nodes, groups and triangles looked at.
    std::uint64_t effort = 0;
    InstructionSet instructionSet = getInstructionSet();
};

} // namespace tesk::measurement::acceleration
