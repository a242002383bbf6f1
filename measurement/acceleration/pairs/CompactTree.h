#pragma once

#include <measurement/acceleration/pairs/CompactHull.h>

#include <cstdint>
#include <vector>

namespace tesk::measurement::acceleration {

/// A tree whose nodes are compact, to find near triangles fast.
///
/// Triangles next to each other make groups. Every node has some groups and is cut in the middle of its longest side
/// when open() is called for it, down to a single group. The mesh's arrays must outlive the tree.
class CompactTree {
public:
    static constexpr std::uint32_t root = 0;
    /// Of triangles that are not wild: 1 by the sine of the angle at the first corner.
    static constexpr float largestInverseSine = 1000.0f;

    struct Node {
        CompactHull hull;
        /// Which of the groups, as they are ordered at the time.
        std::uint32_t begin = 0;
        std::uint32_t end = 0;
        /// The first of two children, one after the other; 0 for a node with one group.
        std::uint32_t children = 0;
        bool isOpen = false;
    };

    struct Group {
        CompactHull hull;
        /// Which of the numbers of triangles.
        std::uint32_t begin = 0;
        std::uint32_t end = 0;
    };

    /// isFirst: whether the triangles come first in queries, where those given as segments (start, end, end) are not
    /// wild, for the query never looks at their faces.
    CompactTree(const TriangleMesh& triangles, bool isTreeOfFirst) : mesh(triangles), isFirst(isTreeOfFirst) {}

    /// Takes the triangles but for the wild ones, which are so thin, small, large or far from finite that their
    /// distances say little, and those whose squared gap to another box is above `farthest`.
    void choose(const QuadBox& other, float farthest);
    /// Leaves out those, too, that are so far from another box. Makes the root of the others.
    void build(const QuadBox& other, float farthest);

    const TriangleMesh& getMesh() const { return mesh; }
    const std::vector<std::uint32_t>& getWildTriangles() const { return wild; }
    /// Of the triangles chosen.
    const QuadBox& getBox() const { return box; }
    bool isEmpty() const { return groups.empty(); }
    const Node& getNode(std::uint32_t node) const { return nodes[node]; }
    /// Of a node without children.
    const Group& getGroup(const Node& node) const { return groups[order[node.begin]]; }
    const std::uint32_t* getNumbers() const { return numbers.data(); }
    /// References to nodes end here.
    void open(std::uint32_t node) {
        if (!nodes[node].isOpen) split(node);
    }

private:
    struct GroupDraft;

    void orderTriangles();
    void createGroups();
    void finishGroup(const GroupDraft& draft, std::uint32_t end);
    void split(std::uint32_t node);
    /// Moves its lower groups in front of the others, and says where these begin.
    std::uint32_t partition(const Node& node);
    Node createNode(std::uint32_t begin, std::uint32_t end) const;

    TriangleMesh mesh;
    bool isFirst;
    QuadBox box;
    std::vector<std::uint32_t> numbers;
    std::vector<std::uint32_t> wild;
    std::vector<Group> groups;
    std::vector<std::uint32_t> order;
    std::vector<Node> nodes;
};

} // namespace tesk::measurement::acceleration
