#include <measurement/acceleration/pairs/LazyTree.h>

#include <measurement/acceleration/Workers.h>

#include <algorithm>

namespace tesk::measurement::acceleration {

namespace {

constexpr std::uint32_t mostTrianglesInLeaf = 4;
constexpr std::size_t runsWorthAThread = 4096;
/// The boxes of so many entries are kept near at hand, though not of more than one in eight triangles.
constexpr std::uint32_t mostEntriesWithBoxes = 32768;
/// How many entries ahead a triangle's positions are asked for, and its corners twice as many.
constexpr std::uint32_t entriesAhead = 16;

template <class Number> std::unique_ptr<Number[]> allocateUntouched(std::size_t count) {
    return std::unique_ptr<Number[]>(new Number[count]);
}

/// Entries with this bit are numbers of runs, others numbers of triangles, of which there are never so many.
constexpr std::uint32_t runBit = 0x80000000;

bool isRun(std::uint32_t entry) { return (entry & runBit) != 0; }

/// Triangles that the processor cannot foresee: the farther one's corners, the nearer one's positions.
void prefetch(const TriangleMesh& mesh, std::uint32_t farther, std::uint32_t nearer) {
    if (!isRun(farther)) __builtin_prefetch(mesh.corners + 3 * std::size_t(farther));
    if (isRun(nearer)) return;
    __builtin_prefetch(&mesh.corner(nearer, 0));
    __builtin_prefetch(&mesh.corner(nearer, 2));
}

/// For each axis, whether a triangle straddles the cut across it, or else lies above. For a run, whether it is mixed:
/// its triangles may not all lie on the same side.
struct Sides {
    QuadMask straddles;
    QuadMask isUpper;

    /// One bit for each axis, that of x lowest; those of isUpper from upperBit on.
    std::uint8_t pack() const { return std::uint8_t(toBits(straddles) | toBits(isUpper) << 4); }
    static constexpr unsigned straddlesAny = 7, upperBit = 16;
};

/// The cuts across all axes at the middle of a box.
struct Cuts {
    Quad centre;
    Quad halfExtent;

    explicit Cuts(const QuadBox& box) : centre((box.min + box.max) * 0.5f), halfExtent((box.max - box.min) * 0.5f) {}

    Sides sidesOf(const TriangleExtent& triangle) const {
        const QuadMask straddles = triangle.box.max - triangle.box.min >= halfExtent;
        return {straddles, ~straddles & (centre <= triangle.centroid)};
    }
    Sides sidesOf(const TriangleRun& run) const {
        const QuadMask isUpper = centre <= run.leastCentroid, isLower = run.largestCentroid < centre;
        return {~((run.largestExtent < halfExtent) & (isUpper | isLower)), isUpper};
    }
};

} // namespace

/// How many triangles straddle the cuts across the three axes, and how many lie above.
struct LazyTree::SideCounts {
    QuadMask straddling{};
    QuadMask upper{};

    void add(const Sides& triangle) {
        straddling -= triangle.straddles;
        upper -= triangle.isUpper;
    }
    void addUniform(const Sides& run, std::uint32_t size) { upper += run.isUpper & int(size); }
};

struct LazyTree::Split {
    int axis = 0;
    std::uint32_t straddling = 0;
    std::uint32_t upper = 0;
};

/// The places that a node's entries go to.
struct LazyTree::Children {
    Cuts cuts;
    int axis;
    std::uint32_t* to;
    std::uint32_t ownEnd;
    Node low, high;

    Children(const Node& node, const Split& chosen, std::uint32_t* destination)
        : cuts(node.box), axis(chosen.axis), to(destination), ownEnd(node.begin) {
        // Its own triangles, then the lower, then the upper ones.
        low.array = high.array = std::uint8_t(1 - node.array);
        low.begin = low.end = node.begin + chosen.straddling;
        high.begin = high.end = node.end - chosen.upper;
    }
    void add(std::uint32_t entry, const QuadBox& box, std::uint32_t size, bool isUpper) {
        Node& child = isUpper ? high : low;
        to[child.begin + child.entryCount++] = entry;
        child.end += size;
        child.box.grow(box);
    }
};

LazyTree::LazyTree(const TriangleMesh& triangles) : mesh(triangles) {
    arrays[0] = allocateUntouched<std::uint32_t>(mesh.triangleCount);
    Node all;
    all.end = mesh.triangleCount;
    all.entryCount = TriangleRun::countOf(mesh);
    runs = allocateUntouched<TriangleRun>(all.entryCount);
    runInChunks(all.entryCount, runsWorthAThread, [this](std::size_t, std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) runs[i].assign(mesh, static_cast<std::uint32_t>(i));
    });
    for (std::uint32_t i = 0; i < all.entryCount; ++i) {
        arrays[0][i] = runBit | i;
        all.box.grow(runs[i].box);
    }
    nodes.push_back(all);
}

void LazyTree::split(std::uint32_t number) {
    Node& node = nodes[number];
    node.isOpen = true;
    node.ownEnd = node.end;
    if (node.size() > mostTrianglesInLeaf) {
        if (!sides) {
            arrays[1] = allocateUntouched<std::uint32_t>(mesh.triangleCount);
            sides = allocateUntouched<std::uint8_t>(mesh.triangleCount);
            boxCount = std::min(mesh.triangleCount / 8, mostEntriesWithBoxes);
            boxes = allocateUntouched<StoredBox>(boxCount);
        }
        splitCount += node.entryCount;
        Split chosen;
        if (chooseSplit(node, chosen)) {
            distribute(number, chosen);
            return;
        }
    }
    expandEntries(node);
}

LazyTree::SideCounts LazyTree::countSides(const Node& node) {
    const std::uint32_t* const entries = getNumbers(node) + node.begin;
    const Cuts cuts(node.box);
    SideCounts counts;
    for (std::uint32_t i = 0; i < node.entryCount; ++i) {
        if (i + 2 * entriesAhead < node.entryCount)
            prefetch(mesh, entries[i + 2 * entriesAhead], entries[i + entriesAhead]);
        const std::uint32_t entry = entries[i];
        if (!isRun(entry)) {
            const TriangleExtent triangle(mesh, entry);
            const Sides side = cuts.sidesOf(triangle);
            counts.add(side);
            sides[i] = side.pack();
            if (i < boxCount) boxes[i] = triangle.box;
            continue;
        }
        const std::uint32_t run = entry & ~runBit;
        const Sides side = cuts.sidesOf(runs[run]);
        sides[i] = side.pack();
        const std::uint32_t begin = TriangleRun::beginOf(run), end = TriangleRun::endOf(mesh, run);
        if ((sides[i] & Sides::straddlesAny) == 0) {
            counts.addUniform(side, end - begin);
        } else {
            splitCount += end - begin;
            for (std::uint32_t k = begin; k < end; ++k) counts.add(cuts.sidesOf(TriangleExtent(mesh, k)));
        }
    }
    return counts;
}

bool LazyTree::chooseSplit(const Node& node, Split& chosen) {
    const SideCounts counts = countSides(node);
    chosen.straddling = node.size();
    bool isChosen = false;
    for (int axis = 0; axis < 3; ++axis) {
        const auto straddlingCount = std::uint32_t(counts.straddling[axis]),
                   upperCount = std::uint32_t(counts.upper[axis]);
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
    const std::uint32_t* const from = getNumbers(node) + node.begin;
    Children children(node, chosen, arrays[1 - node.array].get());
    for (std::uint32_t i = 0; i < node.entryCount; ++i) {
        const std::uint32_t entry = from[i], entryNumber = entry & ~runBit;
        const unsigned side = unsigned(sides[i]) >> chosen.axis;
        const bool straddles = (side & 1) != 0, isUpper = (side & Sides::upperBit) != 0;
        if (!isRun(entry)) {
            if (straddles) {
                children.to[children.ownEnd++] = entry;
            } else {
                children.add(entry, i < boxCount ? QuadBox(boxes[i]) : quadBoxOf(mesh, entry), 1, isUpper);
            }
        } else if (straddles) {
            distributeRun(entryNumber, children);
        } else {
            children.add(entry, runs[entryNumber].box, TriangleRun::sizeOf(mesh, entryNumber), isUpper);
        }
    }
    const auto append = [this](const Node& child) {
        if (child.size() == 0) return none;
        nodes.push_back(child);
        return std::uint32_t(nodes.size() - 1);
    };
    const std::uint32_t lowNumber = append(children.low), highNumber = append(children.high);
    Node& changed = nodes[number];
    changed.array = children.low.array;
    changed.ownEnd = children.ownEnd;
    changed.axis = std::int8_t(chosen.axis);
    changed.low = lowNumber;
    changed.high = highNumber;
}

void LazyTree::distributeRun(std::uint32_t run, Children& children) const {
    const std::uint32_t end = TriangleRun::endOf(mesh, run);
    for (std::uint32_t triangle = TriangleRun::beginOf(run); triangle < end; ++triangle) {
        const TriangleExtent extent(mesh, triangle);
        const Sides side = children.cuts.sidesOf(extent);
        if (side.straddles[children.axis] != 0) {
            children.to[children.ownEnd++] = triangle;
        } else {
            children.add(triangle, extent.box, 1, side.isUpper[children.axis] != 0);
        }
    }
}

/// From the last one on, as triangles take the room of entries that have been read.
void LazyTree::expandEntries(const Node& node) {
    std::uint32_t* const numbers = arrays[node.array].get();
    std::uint32_t place = node.end;
    for (std::uint32_t i = node.entryCount; i-- > 0;) {
        const std::uint32_t entry = numbers[node.begin + i], run = entry & ~runBit;
        if (!isRun(entry)) {
            numbers[--place] = entry;
            continue;
        }
        for (std::uint32_t k = TriangleRun::endOf(mesh, run); k-- > TriangleRun::beginOf(run);) numbers[--place] = k;
    }
}

std::uint32_t LazyTree::findChild(std::uint32_t number, std::uint32_t triangle) const {
    const Node& node = nodes[number];
    if (node.axis < 0) return none;
    const Sides side = Cuts(node.box).sidesOf(TriangleExtent(mesh, triangle));
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
