#include <measurement/acceleration/outlines/OutlineDistance.h>

#include <measurement/acceleration/outlines/SegmentPairs.h>
#include <measurement/acceleration/pairs/OrderedSearch.h>

#include <limits>

namespace tesk::measurement::acceleration {

namespace {

constexpr std::uint64_t toTheEnd = std::numeric_limits<std::uint64_t>::max();

} // namespace

OutlineDistance::OutlineDistance(const TriangleMesh& object) : objectTree(object) {}

void OutlineDistance::calcDistance(const std::vector<Segment>& segments) {
    setOutline(segments);
    LazyTree outlineTree(outline);
    OrderedSearch search(outlineTree, objectTree, detail::largestFloat);
    if (searchNearPairs(outlineTree, search.getSquaredDistance())) {
        ++nearSearchCount;
        return;
    }
    search.run(toTheEnd);
    take(search);
}

void OutlineDistance::setOutline(const std::vector<Segment>& segments) {
    positions.clear();
    corners.clear();
    for (const Segment& segment : segments) {
        const auto start = static_cast<std::uint32_t>(positions.size());
        positions.insert(positions.end(), {segment.start, segment.end});
        corners.insert(corners.end(), {start, start + 1, start + 1});
    }
    // One more, as the mesh wants it.
    positions.emplace_back(0.0f, 0.0f, 0.0f);
    outline = {positions.data(), corners.data(), static_cast<std::uint32_t>(segments.size())};
}

bool OutlineDistance::searchNearPairs(LazyTree& outlineTree, float bound) {
    if (!groups) groups.emplace(objectTree.getMesh());
    SegmentPairs near(outline, *groups);
    const std::vector<std::uint32_t> none;
    std::optional<PairSelection> selection;
    // The way to the nearest pair may lead through boxes that are farther apart, and then more pairs matter.
    for (int attempt = 0; attempt < 2 && !(selection && selection->isSufficient()); ++attempt) {
        const float least = selection ? selection->getThreshold() : 0.0f;
        if (!near.find(bound, least, nearestTriangle)) return false;
        selection.emplace(NearTriangles{near.getPairs(), near.getLimit(), none, none}, outlineTree, objectTree, bound);
    }
    if (!selection->isSufficient()) return false;
    if (!near.getPairs().empty()) nearestTriangle = near.getPairs().front().second;

    OrderedSearch search(outlineTree, objectTree, bound, &*selection);
    search.run(toTheEnd);
    if (!search.isCertain()) return false;
    take(search);
    return true;
}

void OutlineDistance::take(const OrderedSearch& search) {
    closestPoint1 = search.getClosestPoint1();
    closestPoint2 = search.getClosestPoint2();
}

} // namespace tesk::measurement::acceleration
