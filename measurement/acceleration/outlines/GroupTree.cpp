#include <measurement/acceleration/outlines/GroupTree.h>

#include <measurement/acceleration/SpatialOrder.h>

#include <algorithm>
#include <cmath>

namespace tesk::measurement::acceleration {

namespace {

/// Boxes of groups with so many times the surface of their triangles' boxes are worth sorting.
constexpr float largeBoxes = 8.0f;

float largestOf(const Quad& quad) { return std::max(std::max(quad[0], quad[1]), quad[2]); }

/// Half of it.
float surfaceOf(const QuadBox& box) {
    const Quad size = box.max - box.min;
    return size[0] * size[1] + size[1] * size[2] + size[2] * size[0];
}

} // namespace

GroupTree::GroupTree(const TriangleMesh& triangles) : mesh(triangles) {
    if (mesh.triangleCount == 0) return;
    if (build() > largeBoxes) {
        order = orderAlongCurve(mesh.positions, mesh.corners, 3, mesh.triangleCount);
        build();
    }
}

float GroupTree::build() {
    levels.clear();
    boxCounts.clear();
    float boxes = 0.0f, triangles = 0.0f;
    Quad reach{};
    addLevel(mesh.triangleCount, [&](std::size_t group, std::size_t place, BlurredBox& box) {
        const std::uint32_t number = getNumber(group, place);
        const QuadBox own = quadBoxOf(mesh, number);
        const float blur = calcBlur(mesh[number]);
        box.box.grow(own);
        box.blur = std::max(box.blur, blur);
        if (std::isfinite(blur)) {
            reach = larger(reach, larger(absolute(own.min), absolute(own.max)));
            triangles += surfaceOf(own);
        }
        if (place + 1 == getSize(group) && std::isfinite(box.blur)) boxes += surfaceOf(box.box);
    });
    largestCoordinate = largestOf(reach);
    while (boxCounts.back() > groupSize) {
        addLevel(boxCounts.back(), [this](std::size_t block, std::size_t lane, BlurredBox& box) {
            const BlurredBox inner = levels[levels.size() - 1][block].get(lane);
            box.box.grow(inner.box);
            box.blur = std::max(box.blur, inner.blur);
        });
    }
    return boxes / triangles;
}

template <class Grow> void GroupTree::addLevel(std::size_t count, Grow grow) {
    const auto divided = [](std::size_t number) { return (number + groupSize - 1) / groupSize; };
    const std::size_t boxCount = divided(count);
    std::vector<BlurredBoxLanes> blocks(divided(boxCount));
    for (std::size_t i = 0; i < boxCount; ++i) {
        BlurredBox box;
        const std::size_t size = std::min(groupSize, count - i * groupSize);
        for (std::size_t inner = 0; inner < size; ++inner) grow(i, inner, box);
        blocks[i / groupSize].set(i % groupSize, box);
    }
    levels.push_back(std::move(blocks));
    boxCounts.push_back(boxCount);
}

std::size_t GroupTree::getSize(std::size_t group) const {
    return std::min<std::size_t>(groupSize, mesh.triangleCount - group * groupSize);
}

} // namespace tesk::measurement::acceleration
