#pragma once

#include <measurement/acceleration/outlines/GroupTree.h>
#include <measurement/acceleration/pairs/PairSelection.h>

#include <cstdint>
#include <vector>

namespace tesk::measurement::acceleration {

/// The pairs of a segment and a triangle that a search for the smallest distance depends on; for many segments
/// NearPairs is slower.
///
/// All pairs for which DistanceTriangleTriangle gives a value up to a limit, be the triangle never so thin, and all of
/// which boxes have no corners farther apart.
class SegmentPairs {
public:
    /// Segments as triangles (start, end, end). Both must outlive the search.
    SegmentPairs(const TriangleMesh& outline, const GroupTree& object);

    /// The limit is a little more than the smallest value of all or the bound if that is smaller, but at least `least`.
    /// A triangle that is likely to be near makes it faster. False when there are too many pairs, when something
    /// touches, or when it takes too long.
    bool find(float bound, float least, std::uint32_t likelyTriangle);

    /// Ascending in the value.
    const std::vector<TrianglePair>& getPairs() const { return pairs; }
    float getLimit() const { return reach.limit; }

private:
    /// Eight segments next to each other.
    struct Bundle {
        BlurredBox all;
        BlurredBoxLanes each;
        /// Where the first one stands in the order, and how many there are.
        std::size_t first = 0;
        std::size_t size = 0;
    };

    void createBundles();
    void startWith(std::uint32_t likelyTriangle);
    /// Goes straight down to the group that seems nearest. The smallest value met, or what is known of it.
    float probe(std::size_t bundle);
    void search(std::size_t bundle, std::size_t level, std::size_t block);
    /// The boxes up to the limit, one bit for each; all bounds.
    unsigned findBoxes(std::size_t bundle, std::size_t level, std::size_t block, float (&bounds)[8]);
    /// The smallest value met, or what is known of it.
    float testGroup(std::size_t bundle, std::size_t group);
    void lowerLimit(float squaredDistance);
    bool isOver() const;
    void removeBeyondLimit();
    Segment getSegment(std::uint32_t number) const { return {mesh.corner(number, 0), mesh.corner(number, 1)}; }

    TriangleMesh mesh;
    const GroupTree& tree;
    std::vector<std::uint32_t> order;
    std::vector<Bundle> bundles;
    SearchReach reach{};
    float leastLimit = 0.0f;
    std::uint64_t testsLeft = 0;
    bool touches = false;
    std::vector<TrianglePair> pairs;
    InstructionSet instructionSet = getInstructionSet();
};

} // namespace tesk::measurement::acceleration
