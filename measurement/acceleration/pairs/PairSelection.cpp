#include <measurement/acceleration/pairs/PairSelection.h>

#include <measurement/acceleration/Workers.h>

#include <algorithm>

namespace tesk::measurement::acceleration {

namespace {

constexpr std::size_t trianglesWorthAThread = 20000;

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

PairSelection::PairSelection(const NearPairs& near, LazyTree& first, LazyTree& second, float bound)
    : PairSelection(NearTriangles{near.getPairs(), near.getLimit(), near.getTree1().getWildTriangles(),
                                  near.getTree2().getWildTriangles()},
                    first, second, bound) {}

PairSelection::PairSelection(const NearTriangles& near, LazyTree& first, LazyTree& second, float bound)
    : tree1(first), tree2(second), threshold(std::max(bound, detail::touchingDistance)) {
    findPlaces(near);
    if (!near.pairs.empty()) threshold = std::min(threshold, calcPathBound(near.pairs.front()));
    sufficient = threshold * (1.0f + 0.5f * NearPairs::margin) <= near.limit;
}

void PairSelection::findPlaces(const NearTriangles& near) {
    places.resize(near.pairs.size());
    // An object may be measured against itself.
    const std::size_t least =
        &tree1 == &tree2 ? 0 : std::min(tree1.getMesh().triangleCount, tree2.getMesh().triangleCount);
    runBoth(
        least, trianglesWorthAThread,
        [&] {
            for (std::size_t i = 0; i < places.size(); ++i) places[i].first = tree1.locate(near.pairs[i].first);
            wildPlaces1 = locateAll(tree1, near.wild1);
        },
        [&] {
            for (std::size_t i = 0; i < places.size(); ++i) places[i].second = tree2.locate(near.pairs[i].second);
            wildPlaces2 = locateAll(tree2, near.wild2);
        });
    std::sort(places.begin(), places.end(), [](const Place& a, const Place& b) { return a.first < b.first; });
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

bool PairSelection::touches(const LazyTree::Node& node1, const LazyTree::Node& node2) const {
    if (holdsAny(node1, wildPlaces1) || holdsAny(node2, wildPlaces2)) return true;
    auto place = std::lower_bound(places.begin(), places.end(), node1.begin,
                                  [](const Place& p, std::uint32_t begin) { return p.first < begin; });
    for (; place != places.end() && place->first < node1.end; ++place)
        if (place->second >= node2.begin && place->second < node2.end) return true;
    return false;
}

} // namespace tesk::measurement::acceleration
