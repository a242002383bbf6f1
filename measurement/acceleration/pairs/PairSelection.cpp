#include <measurement/acceleration/pairs/PairSelection.h>

#include <measurement/acceleration/Workers.h>

#include <algorithm>
#include <limits>

namespace tesk::measurement::acceleration {

namespace {

std::vector<std::uint32_t> locateAll(LazyTree& tree, const std::vector<std::uint32_t>& triangles) {
    std::vector<std::uint32_t> places;
    for (const std::uint32_t triangle : triangles) places.push_back(tree.locate(triangle));
    std::sort(places.begin(), places.end());
    return places;
}

bool holdsAny(const LazyTree::Node& node, const std::vector<std::uint32_t>& places) {
    const auto first = std::lower_bound(places.begin(), places.end(), node.begin);
    return first != places.end() && *first < node.end;
}

} // namespace

PairSelection::PairSelection(const NearTriangles& near, LazyTree& first, LazyTree& second, float bound)
    : tree1(first), tree2(second), threshold(std::max(bound, detail::touchingDistance)) {
    locatePairs(near);
    if (!near.pairs.empty()) threshold = std::min(threshold, findThreshold(near));
    sufficient = threshold <= near.limit;
}

void PairSelection::locatePairs(const NearTriangles& near) {
    places1.resize(near.pairs.size());
    // An object may be measured against itself.
    const std::size_t least =
        &tree1 == &tree2 ? 0 : std::min(tree1.getMesh().triangleCount, tree2.getMesh().triangleCount);
    runBoth(
        least, LazyTree::trianglesWorthAThread,
        [&] {
            for (std::size_t i = 0; i < places1.size(); ++i) places1[i].own = tree1.locate(near.pairs[i].first);
            wildPlaces1 = locateAll(tree1, near.wild1);
        },
        [&] {
            for (std::size_t i = 0; i < places1.size(); ++i) places1[i].other = tree2.locate(near.pairs[i].second);
            wildPlaces2 = locateAll(tree2, near.wild2);
        });
    places2.reserve(places1.size());
    for (const Place& place : places1) places2.push_back({place.other, place.own});
    sort(places1);
    sort(places2);
}

float PairSelection::findThreshold(const NearTriangles& near) {
    // Bounds on the way to a pair may be rounded to more than its value, those on the way to its equal not.
    constexpr std::size_t mostTried = 64;
    float least = std::numeric_limits<float>::infinity();
    for (std::size_t i = 0; i < std::min(mostTried, near.pairs.size()) && !(least <= near.limit); ++i)
        least = std::min(least, calcPathBound(near.pairs[i]));
    return least;
}

float PairSelection::calcPathBound(const TrianglePair& pair) {
    float bound = std::max(pair.squaredDistance, detail::touchingDistance);
    std::uint32_t number1 = LazyTree::root, number2 = LazyTree::root;
    while (true) {
        const LazyTree::Node& node1 = tree1.getNode(number1);
        const LazyTree::Node& node2 = tree2.getNode(number2);
        bound = std::max(bound, distanceBounds(node1.box, node2.box).lower);
        const std::uint32_t child1 = tree1.findChild(number1, pair.first);
        const std::uint32_t child2 = tree2.findChild(number2, pair.second);
        if (child1 == LazyTree::none && child2 == LazyTree::none) {
            const QuadBox box1 = quadBoxOf(tree1.getMesh(), pair.first);
            const float gap = squaredGap(box1, quadBoxOf(tree2.getMesh(), pair.second));
            return std::max({bound, gap, squaredGap(box1, node2.box)});
        }
        // A node that keeps triangles stays whole; of two such nodes the first does.
        const bool keeps1 = node1.hasTriangles(), keeps2 = node2.hasTriangles();
        const bool descends2 = child2 != LazyTree::none && (keeps1 || !keeps2);
        const bool descends1 = child1 != LazyTree::none && !(keeps1 && descends2) && (keeps2 || !keeps1);
        if (descends1) number1 = child1;
        if (descends2) number2 = child2;
    }
}

void PairSelection::sort(std::vector<Place>& places) {
    std::sort(places.begin(), places.end(), [](const Place& a, const Place& b) { return a.own < b.own; });
}

PairSelection::Places PairSelection::findPlaces(const std::vector<Place>& places, const LazyTree::Node& node) {
    const auto isBefore = [](const Place& place, std::uint32_t own) { return place.own < own; };
    const auto first = std::lower_bound(places.begin(), places.end(), node.begin, isBefore);
    return {first, std::lower_bound(first, places.end(), node.end, isBefore)};
}

bool PairSelection::Places::leadTo(const LazyTree::Node& node) const {
    return std::any_of(first, last,
                       [&](const Place& place) { return place.other >= node.begin && place.other < node.end; });
}

bool PairSelection::touches(const LazyTree::Node& node1, const LazyTree::Node& node2) const {
    if (holdsAny(node1, wildPlaces1) || holdsAny(node2, wildPlaces2)) return true;
    const Places from1 = findPlaces(places1, node1), from2 = findPlaces(places2, node2);
    return from1.size() < from2.size() ? from1.leadTo(node2) : from2.leadTo(node1);
}

} // namespace tesk::measurement::acceleration
