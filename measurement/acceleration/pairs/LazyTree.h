#pragma once

#include <measurement/acceleration/pairs/TriangleRun.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace tesk::measurement::acceleration {

/// The BoundingVolumeTree over a mesh, node by node as a search looks into it.
///
/// Same boxes, same triangles in the same order, same children; but a node is split when open() is called for it, and
/// triangles are numbers. Those that follow each other in the mesh form runs, and a run goes to a child as a whole
/// where all its triangles do: so large nodes are split in a fraction of the time that their triangles would take. The
/// mesh's arrays must outlive the tree.
///
/// Memory: 5 bytes a triangle for the runs; 13 more, of which only those parts are ever touched that nodes open on; 64
/// a node.
class LazyTree {
public:
    static constexpr std::uint32_t root = 0;
    static constexpr std::uint32_t none = 0xffffffff;
    /// Two trees of so many triangles each are worth a thread each.
    static constexpr std::size_t trianglesWorthAThread = 20000;

    struct Node {
        QuadBox box;
        /// Where its triangles stand among the numbers: its own up to ownEnd, then those of its children.
        std::uint32_t begin = 0;
        std::uint32_t end = 0;
        std::uint32_t ownEnd = 0;
        /// Until it is open: how many entries stand for its triangles, from begin on, each a triangle or a run.
        std::uint32_t entryCount = 0;
        /// The children, or none.
        std::uint32_t low = none;
        std::uint32_t high = none;
        /// Which of the two arrays of numbers holds them.
        std::uint8_t array = 0;
        bool isOpen = false;
        /// The axis across which it has been split.
        std::int8_t axis = -1;

        bool hasTriangles() const { return ownEnd > begin; }
        std::uint32_t size() const { return end - begin; }
    };

    explicit LazyTree(const TriangleMesh& triangles);

    const TriangleMesh& getMesh() const { return mesh; }
    /// How many entries have been looked at to split nodes, those of several nodes so many times.
    std::uint64_t getSplitCount() const { return splitCount; }
    /// The box holds from the start, everything else when the node is open.
    const Node& getNode(std::uint32_t node) const { return nodes[node]; }
    /// Splits the node if that has not been done. References to nodes end here.
    void open(std::uint32_t node) {
        if (!nodes[node].isOpen) split(node);
    }
    /// The child of an open node that holds a triangle which the node holds; none when the node keeps it itself.
    std::uint32_t findChild(std::uint32_t node, std::uint32_t triangle) const;
    /// Where the triangle stands once all nodes that hold it are open, and opens them.
    std::uint32_t locate(std::uint32_t triangle);
    /// Numbers of the triangles that an open node keeps itself, from its begin to its ownEnd.
    const std::uint32_t* getNumbers(const Node& node) const { return arrays[node.array].get(); }

private:
    struct SideCounts;
    struct Split;

    struct Children;

    void split(std::uint32_t node);
    SideCounts countSides(const Node& node);
    bool chooseSplit(const Node& node, Split& chosen);
    void distribute(std::uint32_t node, const Split& chosen);
    void distributeRun(std::uint32_t run, Children& children) const;
    void expandEntries(const Node& node);

    TriangleMesh mesh;
    std::unique_ptr<TriangleRun[]> runs;
    std::uint64_t splitCount = 0;
    std::vector<Node> nodes;
    std::unique_ptr<std::uint32_t[]> arrays[2];
    /// On which sides of the three cuts each entry of the node that is being split lies.
    std::unique_ptr<std::uint8_t[]> sides;
    /// The boxes of its first entries.
    std::unique_ptr<StoredBox[]> boxes;
    std::uint32_t boxCount = 0;
};

} // namespace tesk::measurement::acceleration
