#include <measurement/acceleration/CompactTree.h>

#include <measurement/geometry/detail/VectorMath.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace tesk::measurement::acceleration {

namespace {

constexpr std::uint32_t mostTrianglesInLeaf = 4;

/// Infinity for wild triangles.
float calcInverseSine(const Triangle& t, bool isFirst) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    constexpr float largestCoordinate = 1e15f;
    for (const osg::Pnt3f* corner : {&t.p0, &t.p1, &t.p2})
        for (const float coordinate : {(*corner)[0], (*corner)[1], (*corner)[2]})
            if (!(std::fabs(coordinate) < largestCoordinate)) return infinity;

    const osg::Vec3f edge0 = detail::difference(t.p1, t.p0), edge1 = detail::difference(t.p2, t.p0);
    const float a00 = detail::squaredLength(edge0), a11 = detail::squaredLength(edge1);
    if (isFirst && a11 > 1e-15f && (a00 == 0.0f || detail::squaredLength(detail::difference(t.p2, t.p1)) == 0.0f))
        return 0.0f;
    if (!(a00 > 1e-15f && a11 > 1e-15f)) return infinity;
    const float squaredSine = detail::squaredLength(detail::cross(edge0, edge1)) / a00 / a11;
    return squaredSine >= 1e-6f ? 1.0f / std::sqrt(squaredSine) : infinity;
}

} // namespace

CompactTree::CompactTree(const TriangleMesh& triangles, bool isFirst) : mesh(triangles) {
    numbers.reserve(mesh.triangleCount);
    inverseSines.reserve(mesh.triangleCount);
    for (std::uint32_t i = 0; i < mesh.triangleCount; ++i) {
        inverseSines.push_back(calcInverseSine(mesh[i], isFirst));
        (std::isfinite(inverseSines.back()) ? numbers : wild).push_back(i);
    }
    nodes.push_back(createNode(0, static_cast<std::uint32_t>(numbers.size())));
}

CompactTree::Node CompactTree::createNode(std::uint32_t begin, std::uint32_t end) const {
    Node node;
    node.begin = begin;
    node.end = end;
    for (std::uint32_t i = begin; i < end; ++i) grow(node, numbers[i], quadBoxOf(mesh, numbers[i]));
    return node;
}

void CompactTree::grow(Node& node, std::uint32_t triangle, const QuadBox& box) const {
    node.box.grow(box);
    node.inverseSine = std::max(node.inverseSine, inverseSines[triangle]);
}

void CompactTree::split(std::uint32_t number) {
    nodes[number].isOpen = true;
    const Node node = nodes[number];
    if (node.end - node.begin <= mostTrianglesInLeaf) return;
    Node low, high;
    partition(node, low, high);
    if (low.begin == low.end || high.begin == high.end) {
        // Triangles that one cut cannot tell apart are dealt out as they stand.
        const std::uint32_t middle = node.begin + (node.end - node.begin) / 2;
        low = createNode(node.begin, middle);
        high = createNode(middle, node.end);
    }
    nodes[number].children = static_cast<std::uint32_t>(nodes.size());
    nodes.push_back(low);
    nodes.push_back(high);
}

void CompactTree::partition(const Node& node, Node& low, Node& high) {
    const Quad extent = node.box.max - node.box.min;
    const int longerOfTwo = extent[1] > extent[0] ? 1 : 0;
    const int axis = extent[2] > extent[longerOfTwo] ? 2 : longerOfTwo;
    const float middle = node.box.min[axis] + node.box.max[axis];
    std::uint32_t begin = node.begin, end = node.end;
    while (begin < end) {
        const std::uint32_t triangle = numbers[begin];
        const QuadBox box = quadBoxOf(mesh, triangle);
        if (box.min[axis] + box.max[axis] < middle) {
            grow(low, triangle, box);
            ++begin;
        } else {
            grow(high, triangle, box);
            std::swap(numbers[begin], numbers[--end]);
        }
    }
    low.begin = node.begin;
    low.end = high.begin = begin;
    high.end = node.end;
}

} // namespace tesk::measurement::acceleration
