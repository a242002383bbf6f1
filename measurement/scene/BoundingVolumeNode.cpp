#include <measurement/scene/BoundingVolumeNode.h>

#include <measurement/geometry/detail/Box.h>
#include <measurement/geometry/detail/Constants.h>

#include <utility>
#include <vector>

namespace tesk::measurement {

namespace {

constexpr std::size_t mostTrianglesInLeaf = 4;

enum class Side { lower, upper, straddling };

} // namespace

/// A cut across one axis at the middle of the box.
struct BoundingVolumeNode::Split {
    int axis;
    float centre;
    float halfExtent;

    Side sideOf(const Triangle& triangle) const {
        if (detail::highest(triangle, axis) - detail::lowest(triangle, axis) >= halfExtent) return Side::straddling;
        const float sum = triangle.p0[axis] + triangle.p1[axis] + triangle.p2[axis];
        return centre <= sum * 0.33333334f ? Side::upper : Side::lower;
    }
};

BoundingVolumeNode::BoundingVolumeNode()
    : min(detail::largestFloat, detail::largestFloat, detail::largestFloat),
      max(-detail::largestFloat, -detail::largestFloat, -detail::largestFloat) {}

BoundingVolumeNode::~BoundingVolumeNode() { clear(); }

void BoundingVolumeNode::clear() {
    destroy(std::move(low));
    destroy(std::move(high));
    triangles.clear();
    min.setValues(detail::largestFloat, detail::largestFloat, detail::largestFloat);
    max.setValues(-detail::largestFloat, -detail::largestFloat, -detail::largestFloat);
}

// Without recursion: right rotations turn the subtree into a chain of high children, which is freed
// from its head. Nothing is allocated; the time is constant for each node.
void BoundingVolumeNode::destroy(std::unique_ptr<BoundingVolumeNode> node) {
    while (node) {
        if (std::unique_ptr<BoundingVolumeNode> below = std::move(node->low)) {
            node->low = std::move(below->high);
            below->high = std::move(node);
            node = std::move(below);
        } else {
            node = std::move(node->high);
        }
    }
}

void BoundingVolumeNode::pushTriangle(const Triangle& triangle) {
    triangles.push_back(triangle);
    grow(triangle);
}

void BoundingVolumeNode::build() {
    std::vector<BoundingVolumeNode*> open{this};
    while (!open.empty()) {
        BoundingVolumeNode* const node = open.back();
        open.pop_back();
        if (!node->split()) continue;
        if (node->high) open.push_back(node->high.get());
        if (node->low) open.push_back(node->low.get());
    }
}

bool BoundingVolumeNode::split() {
    if (triangles.size() <= mostTrianglesInLeaf) return false;
    const std::optional<Split> chosen = chooseSplit();
    if (!chosen) return false;
    for (auto next = triangles.begin(); next != triangles.end();) {
        const auto triangle = next++;
        const Side side = chosen->sideOf(*triangle);
        if (side == Side::upper) moveTriangle(triangle, high);
        if (side == Side::lower) moveTriangle(triangle, low);
    }
    return true;
}

std::optional<BoundingVolumeNode::Split> BoundingVolumeNode::chooseSplit() const {
    std::optional<Split> best;
    std::size_t fewestStraddling = triangles.size();
    for (int axis = 0; axis < 3; ++axis) {
        const Split cut{axis, (min[axis] + max[axis]) * 0.5f, (max[axis] - min[axis]) * 0.5f};
        std::size_t lower = 0, upper = 0, straddling = 0;
        for (const Triangle& triangle : triangles) {
            const Side side = cut.sideOf(triangle);
            ++(side == Side::lower ? lower : side == Side::upper ? upper : straddling);
        }
        const bool isUsable = (upper > 0 && lower > 0) || straddling > 0;
        if (isUsable && straddling < fewestStraddling) {
            best = cut;
            fewestStraddling = straddling;
        }
    }
    return best;
}

void BoundingVolumeNode::grow(const Triangle& triangle) {
    for (int axis = 0; axis < 3; ++axis) {
        const float lowest = detail::lowest(triangle, axis);
        const float highest = detail::highest(triangle, axis);
        if (lowest < min[axis]) min[axis] = lowest;
        if (highest > max[axis]) max[axis] = highest;
    }
}

void BoundingVolumeNode::moveTriangle(std::list<Triangle>::iterator triangle,
                                      std::unique_ptr<BoundingVolumeNode>& child) {
    if (!child) child = std::make_unique<BoundingVolumeNode>();
    child->grow(*triangle);
    child->triangles.splice(child->triangles.end(), triangles, triangle);
}

} // namespace tesk::measurement
