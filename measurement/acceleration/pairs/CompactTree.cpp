#include <measurement/acceleration/pairs/CompactTree.h>

#include <measurement/acceleration/SpatialOrder.h>
#include <measurement/acceleration/pairs/FourTriangles.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace tesk::measurement::acceleration {

namespace {

constexpr std::uint32_t mostTrianglesInGroup = 8;
constexpr float leastSine = 1.0f / CompactTree::largestInverseSine;

struct Corners {
    Quad p0, p1, p2;

    Corners(const TriangleMesh& mesh, std::uint32_t triangle)
        : p0(toQuad(mesh.corner(triangle, 0))), p1(toQuad(mesh.corner(triangle, 1))),
          p2(toQuad(mesh.corner(triangle, 2))) {}

    Quad normal() const { return cross(p1 - p0, p2 - p0); }
};

/// The direction if it has one, of length 1.
void setNormal(CompactHull& hull, const Quad& direction) {
    const float squaredLength = dot(direction, direction);
    if (squaredLength > 1e-30f && squaredLength < 1e30f) hull.normal = direction / (Quad{} + std::sqrt(squaredLength));
}

/// Adds a normal to others, whichever way round.
void addNormal(Quad& total, const Quad& normal) { total = dot(total, normal) < 0.0f ? total - normal : total + normal; }

float halfPerimeterOf(const QuadBox& box) { return sum(box.max - box.min); }

} // namespace

struct CompactTree::GroupDraft {
    QuadBox box;
    Quad normal{};
    float smallestSquaredSine = 1.0f;
    float largestHalfPerimeter = 0.0f;
    std::uint32_t count = 0;

    bool wouldSpread(const QuadBox& other) const {
        QuadBox grown = box;
        grown.grow(other);
        return halfPerimeterOf(grown) > 5.0f * std::max(largestHalfPerimeter, halfPerimeterOf(other));
    }
    void add(const QuadBox& other, const Quad& otherNormal, float otherSquaredSine) {
        box.grow(other);
        addNormal(normal, otherNormal);
        smallestSquaredSine = std::min(smallestSquaredSine, otherSquaredSine);
        largestHalfPerimeter = std::max(largestHalfPerimeter, halfPerimeterOf(other));
        ++count;
    }
};

void CompactTree::choose(const QuadBox& other, float farthest) {
    numbers.reserve(mesh.triangleCount);
    for (std::uint32_t begin = 0; begin < mesh.triangleCount; begin += 4) {
        const std::uint32_t count = std::min(4u, mesh.triangleCount - begin);
        const FourTriangles four(mesh, count, [begin](std::uint32_t k) { return begin + k; });
        const QuadMask isWild = four.calcSquaredSines(isFirst, leastSine) == 0.0f;
        const QuadMask isFar = four.squaredGapsTo(other) > farthest;
        for (std::uint32_t k = 0; k < count; ++k) {
            if (isWild[k] != 0) {
                wild.push_back(begin + k);
            } else if (isFar[k] == 0) {
                numbers.push_back(begin + k);
                box.grow(quadBoxOf(mesh, begin + k));
            }
        }
    }
}

void CompactTree::build(const QuadBox& other, float farthest) {
    const auto isFar = [&](std::uint32_t number) { return squaredGapOf(quadBoxOf(mesh, number), other) > farthest; };
    numbers.erase(std::remove_if(numbers.begin(), numbers.end(), isFar), numbers.end());
    orderTriangles();
    createGroups();
    order.resize(groups.size());
    std::iota(order.begin(), order.end(), 0u);
    nodes.push_back(createNode(0, static_cast<std::uint32_t>(groups.size())));
}

void CompactTree::orderTriangles() {
    if (numbers.size() == mesh.triangleCount) {
        numbers = orderAlongCurve(mesh.positions, mesh.corners, 3, mesh.triangleCount);
        return;
    }
    std::vector<std::uint32_t> corners;
    corners.reserve(3 * numbers.size());
    for (const std::uint32_t number : numbers)
        corners.insert(corners.end(), mesh.corners + 3 * std::size_t(number),
                       mesh.corners + 3 * std::size_t(number) + 3);
    std::vector<std::uint32_t> places = orderAlongCurve(mesh.positions, corners.data(), 3, numbers.size());
    for (std::uint32_t& place : places) place = numbers[place];
    numbers = std::move(places);
}

void CompactTree::createGroups() {
    groups.reserve(numbers.size() / mostTrianglesInGroup + 1);
    GroupDraft draft;
    Quad squaredSines{};
    const auto count = static_cast<std::uint32_t>(numbers.size());
    for (std::uint32_t i = 0; i < count; ++i) {
        if (i % 4 == 0)
            squaredSines = FourTriangles(mesh, count - i, [this, i](std::uint32_t k) {
                               return numbers[i + k];
                           }).calcSquaredSines(isFirst, leastSine);
        const Corners corners(mesh, numbers[i]);
        const QuadBox triangleBox = quadBoxOf(corners.p0, corners.p1, corners.p2);
        // The curve jumps now and then. Not for every triangle, lest the groups take more memory than the triangles.
        const bool isFull = draft.count == mostTrianglesInGroup;
        if (isFull || (draft.count > 0 && draft.wouldSpread(triangleBox) && groups.size() < 64 + i / 4)) {
            finishGroup(draft, i);
            draft = GroupDraft();
        }
        draft.add(triangleBox, corners.normal(), squaredSines[i % 4]);
    }
    if (draft.count > 0) finishGroup(draft, count);
}

void CompactTree::finishGroup(const GroupDraft& draft, std::uint32_t end) {
    Group group;
    group.begin = end - draft.count;
    group.end = end;
    CompactHull& hull = group.hull;
    hull.box = draft.box;
    hull.centre = (hull.box.min + hull.box.max) * 0.5f;
    hull.inverseSine = 1.0f / std::sqrt(draft.smallestSquaredSine);
    setNormal(hull, draft.normal);
    float low = 0.0f, high = 0.0f, squaredRadius = 0.0f, squaredReach = 0.0f;
    for (std::uint32_t i = group.begin; i < end; ++i) {
        for (std::size_t which = 0; which < 3; ++which) {
            const Quad offset = toQuad(mesh.corner(numbers[i], which)) - hull.centre;
            const float height = dot(offset, hull.normal), squaredLength = dot(offset, offset);
            low = std::min(low, height);
            high = std::max(high, height);
            squaredRadius = std::max(squaredRadius, squaredLength * 1.000002f - height * height);
            squaredReach = std::max(squaredReach, squaredLength);
        }
    }
    hull.low = low;
    hull.high = high;
    hull.radius = std::sqrt(squaredRadius);
    hull.reach = std::sqrt(squaredReach);
    groups.push_back(group);
}

CompactTree::Node CompactTree::createNode(std::uint32_t begin, std::uint32_t end) const {
    Node node;
    node.begin = begin;
    node.end = end;
    if (end - begin == 1) {
        node.hull = groups[order[begin]].hull;
        return node;
    }
    CompactHull& hull = node.hull;
    Quad normal{};
    for (std::uint32_t i = begin; i < end; ++i) {
        const CompactHull& part = groups[order[i]].hull;
        hull.box.grow(part.box);
        hull.inverseSine = std::max(hull.inverseSine, part.inverseSine);
        addNormal(normal, part.normal * (part.radius * part.radius));
    }
    hull.centre = (hull.box.min + hull.box.max) * 0.5f;
    setNormal(hull, normal);
    for (std::uint32_t i = begin; i < end; ++i) {
        const CompactHull& part = groups[order[i]].hull;
        const Quad offset = part.centre - hull.centre;
        const float height = dot(offset, hull.normal);
        const Range range = rangeAlong(part, hull.normal);
        hull.low = std::min(hull.low, height + range.low);
        hull.high = std::max(hull.high, height + range.high);
        const float squaredLength = dot(offset, offset);
        const float aside = std::sqrt(std::max(0.0f, squaredLength * 1.000002f - height * height));
        hull.radius = std::max(hull.radius, aside + part.reach);
        hull.reach = std::max(hull.reach, std::sqrt(squaredLength) + part.reach);
    }
    return node;
}

void CompactTree::split(std::uint32_t number) {
    nodes[number].isOpen = true;
    const Node node = nodes[number];
    if (node.end - node.begin < 2) return;
    std::uint32_t middle = partition(node);
    // Groups that one cut cannot tell apart are dealt out as they stand.
    if (middle == node.begin || middle == node.end) middle = node.begin + (node.end - node.begin) / 2;
    nodes[number].children = static_cast<std::uint32_t>(nodes.size());
    nodes.push_back(createNode(node.begin, middle));
    nodes.push_back(createNode(middle, node.end));
}

std::uint32_t CompactTree::partition(const Node& node) {
    const Quad extent = node.hull.box.max - node.hull.box.min;
    const int longerOfTwo = extent[1] > extent[0] ? 1 : 0;
    const int axis = extent[2] > extent[longerOfTwo] ? 2 : longerOfTwo;
    const float middle = node.hull.centre[axis];
    const auto upper = std::partition(order.begin() + node.begin, order.begin() + node.end,
                                      [&](std::uint32_t group) { return groups[group].hull.centre[axis] < middle; });
    return static_cast<std::uint32_t>(upper - order.begin());
}

} // namespace tesk::measurement::acceleration
