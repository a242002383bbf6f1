#pragma once

#include <measurement/acceleration/pairs/LazyTree.h>
#include <measurement/acceleration/pairs/NearPairs.h>

#include <cstdint>
#include <vector>

namespace tesk::measurement::acceleration {

/// Pairs of triangles that were found near, and triangles of which that is not known.
struct NearTriangles {
    /// Ascending in the value.
    const std::vector<TrianglePair>& pairs;
    /// The value up to which the pairs are all.
    float limit;
    const std::vector<std::uint32_t>& wild1;
    const std::vector<std::uint32_t>& wild2;
};

/// Which pairs of nodes of two lazy trees hold a near pair of triangles, or a wild triangle.
///
/// The threshold is one of which a search restricted to those pairs of nodes need not fall short: the nearest pair's
/// distance, or a lower bound of it on the way to that pair.
class PairSelection {
public:
    /// Opens all nodes that hold one of the triangles.
    PairSelection(const NearTriangles& near, LazyTree& first, LazyTree& second, float bound);
    PairSelection(const NearPairs& near, LazyTree& first, LazyTree& second, float bound);

    /// Whether the near pairs are enough for that threshold.
    bool isSufficient() const { return sufficient; }
    float getThreshold() const { return threshold; }
    bool touches(const LazyTree::Node& node1, const LazyTree::Node& node2) const;

private:
    struct Place {
        std::uint32_t first, second;
    };

    void findPlaces(const NearTriangles& near);
    /// The greatest bound on a way from the roots to the pair.
    float calcPathBound(const TrianglePair& pair);

    LazyTree& tree1;
    LazyTree& tree2;
    float threshold;
    bool sufficient;
    /// Ascending in the first.
    std::vector<Place> places;
    /// Ascending.
    std::vector<std::uint32_t> wildPlaces1, wildPlaces2;
};

} // namespace tesk::measurement::acceleration
