#include <measurement/acceleration/pairs/LazyTree.h>

#include <algorithm>

namespace tesk::measurement::acceleration {

namespace {

constexpr std::uint32_t mostTrianglesInLeaf = 4;

template <class Number> std::unique_ptr<Number[]> allocateUntouched(std::size_t count) {
    return std::unique_ptr<Number[]>(new Number[count]);
}

/// Bit k: the triangle straddles the cut across axis k, or else lies above it.
struct Sides {
    QuadMask straddles;
    QuadMask isUpper;
};

/// The cuts across all axes at the middle of a box.
struct Cuts {
    Quad centre;
    Quad halfExtent;

    explicit Cuts(const QuadBox& box) : centre((box.min + box.max) * 0.5f), halfExtent((box.max - box.min) * 0.5f) {}

    Sides sidesOf(const TriangleMesh& mesh, std::uint32_t triangle) const {
        const Quad p0 = toQuad(mesh.corner(triangle, 0));
        const Quad p1 = toQuad(mesh.corner(triangle, 1));
        const Quad p2 = toQuad(mesh.corner(triangle, 2));
        const QuadBox box = quadBoxOf(p0, p1, p2);
        const QuadMask straddles = box.max - box.min >= halfExtent;
        return {straddles, ~straddles & (centre <= (p0 + p1 + p2) * 0.33333334f)};
    }
};

/// One bit for each axis, that of x lowest; the fourth means nothing.
unsigned toBits(const QuadMask& mask) {
#ifdef __SSE2__
    return unsigned(__builtin_ia32_movmskps(Quad(mask)));
#else
    return unsigned(mask[0] & 1) | unsigned(mask[1] & 2) | unsigned(mask[2] & 4);
#endif
}

} // namespace

struct LazyTree::Split {
    int axis = 0;
    std::uint32_t straddling = 0;
    std::uint32_t upper = 0;
};

LazyTree::LazyTree(const TriangleMesh& triangles) : mesh(triangles) {
    const std::uint32_t count = mesh.triangleCount;
    arrays[0] = allocateUntouched<std::uint32_t>(count);
    Node all;
    all.end = count;
    for (std::uint32_t i = 0; i < count; ++i) {
        arrays[0][i] = i;
        all.box.grow(quadBoxOf(mesh, i));
    }
    nodes.push_back(all);
}

void LazyTree::split(std::uint32_t number) {
    Node& node = nodes[number];
    node.isOpen = true;
    node.ownEnd = node.end;
    if (node.size() <= mostTrianglesInLeaf) return;
    if (!sides) {
        arrays[1] = allocateUntouched<std::uint32_t>(mesh.triangleCount);
        sides = allocateUntouched<std::uint8_t>(mesh.triangleCount);
    }
    splitCount += node.size();
    Split chosen;
    if (chooseSplit(node, chosen)) distribute(number, chosen);
}

bool LazyTree::chooseSplit(const Node& node, Split& chosen) {
    const std::uint32_t* const numbers = getNumbers(node);
    const Cuts cuts(node.box);
    QuadMask straddling{}, upper{};
    for (std::uint32_t i = 0; i < node.size(); ++i) {
        const Sides side = cuts.sidesOf(mesh, numbers[node.begin + i]);
        straddling -= side.straddles;
        upper -= side.isUpper;
        sides[i] = std::uint8_t(toBits(side.straddles) | toBits(side.isUpper) << 4);
    }
    chosen.straddling = node.size();
    bool isChosen = false;
    for (int axis = 0; axis < 3; ++axis) {
        const auto straddlingCount = std::uint32_t(straddling[axis]), upperCount = std::uint32_t(upper[axis]);
        const std::uint32_t lowerCount = node.size() - straddlingCount - upperCount;
        const bool isUsable = (upperCount > 0 && lowerCount > 0) || straddlingCount > 0;
        if (!isUsable || straddlingCount >= chosen.straddling) continue;
        chosen = {axis, straddlingCount, upperCount};
        isChosen = true;
    }
    return isChosen;
}

void LazyTree::distribute(std::uint32_t number, const Split& chosen) {
    const Node node = nodes[number];
    const std::uint32_t* const from = getNumbers(node);
    std::uint32_t* const to = arrays[1 - node.array].get();
    // Its own triangles, then the lower, then the upper ones.
    Node low, high;
    low.array = high.array = std::uint8_t(1 - node.array);
    low.begin = low.end = node.begin + chosen.straddling;
    high.begin = high.end = node.end - chosen.upper;
    std::uint32_t own = node.begin;
    for (std::uint32_t i = 0; i < node.size(); ++i) {
        const std::uint32_t triangle = from[node.begin + i];
        const unsigned side = unsigned(sides[i]) >> chosen.axis;
        if ((side & 1) != 0) {
            to[own++] = triangle;
        } else {
            Node& child = (side & 16) != 0 ? high : low;
            to[child.end++] = triangle;
            child.box.grow(quadBoxOf(mesh, triangle));
        }
    }
    const auto append = [this](const Node& child) {
        if (child.size() == 0) return none;
        nodes.push_back(child);
        return std::uint32_t(nodes.size() - 1);
    };
    const std::uint32_t lowNumber = append(low), highNumber = append(high);
    Node& changed = nodes[number];
    changed.array = low.array;
    changed.ownEnd = own;
    changed.axis = std::int8_t(chosen.axis);
    changed.low = lowNumber;
    changed.high = highNumber;
}

std::uint32_t LazyTree::findChild(std::uint32_t number, std::uint32_t triangle) const {
    const Node& node = nodes[number];
    if (node.axis < 0) return none;
    const Sides side = Cuts(node.box).sidesOf(mesh, triangle);
    if (side.straddles[node.axis] != 0) return none;
    return side.isUpper[node.axis] != 0 ? node.high : node.low;
}

std::uint32_t LazyTree::locate(std::uint32_t triangle) {
    std::uint32_t number = root;
    for (std::uint32_t child = root; child != none; child = findChild(number, triangle)) {
        number = child;
        open(number);
    }
    const Node& node = nodes[number];
    const std::uint32_t* const numbers = getNumbers(node);
    return std::uint32_t(std::find(numbers + node.begin, numbers + node.ownEnd, triangle) - numbers);
}

} // namespace tesk::measurement::acceleration
