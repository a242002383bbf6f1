#pragma once

#include <measurement/acceleration/pairs/LazyTree.h>
#include <measurement/acceleration/pairs/NearPairs.h>

#include <cstdint>
#include <vector>

namespace tesk::measurement::acceleration {

/// Which pairs of nodes of two lazy trees hold a near pair of triangles, or a wild triangle.
///
/// The threshold is one of which a search restricted to those pairs of nodes need not fall short: the nearest pair's
/// distance, or a lower bound of it on the way to that pair.
class PairSelection {
public:
    /// Opens all nodes that hold one of the triangles.
    PairSelection(const NearTriangles& near, LazyTree& first, LazyTree& second, float bound);

    /// Whether the near pairs are enough for that threshold.
    bool isSufficient() const { return sufficient; }
    float getThreshold() const { return threshold; }
    bool touches(const LazyTree::Node& node1, const LazyTree::Node& node2) const;

private:
    /// Where a pair stands in one tree and in the other.
    struct Place {
        std::uint32_t own, other;
    };

    /// Some that stand next to each other, ascending in their own tree.
    struct Places {
        std::vector<Place>::const_iterator first, last;

        auto size() const { return last - first; }
        bool leadTo(const LazyTree::Node& other) const;
    };

    static void sort(std::vector<Place>& places);
    static Places findPlaces(const std::vector<Place>& places, const LazyTree::Node& node);
    void locatePairs(const NearTriangles& near);
    /// The least that is found among those of the nearest pairs; there must be one.
    float findThreshold(const NearTriangles& near);
    /// The greatest bound on a way from the roots to the pair.
    float calcPathBound(const TrianglePair& pair);

    LazyTree& tree1;
    LazyTree& tree2;
    float threshold;
    bool sufficient;
    std::vector<Place> places1, places2;
    /// Ascending.
    std::vector<std::uint32_t> wildPlaces1, wildPlaces2;
};

} // namespace tesk::measurement::acceleration
