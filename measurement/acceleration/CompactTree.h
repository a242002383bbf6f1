#pragma once

#include <measurement/acceleration/QuadBox.h>

#include <cstdint>
#include <vector>

namespace tesk::measurement::acceleration {

/// A tree whose nodes are compact, to find near triangles fast: every node is cut in the middle of its longest side.
///
/// Nodes are split when open() is called for them. The mesh's arrays must outlive the tree.
class CompactTree {
public:
    struct Node {
        QuadBox box;
        /// The greatest of its triangles: 1 by the sine of the angle at the first corner.
        float inverseSine = 0.0f;
        std::uint32_t begin = 0;
        std::uint32_t end = 0;
        /// The first of two children, one after the other; 0 for a leaf.
        std::uint32_t children = 0;
        bool isOpen = false;
    };

    /// Without the wild triangles. Those are so thin, small, large or far from finite that their distances say little.
    ///
    /// isFirst: whether the triangles come first in queries, where those given as segments (start, end, end) are not
    /// wild, for the query never looks at their faces.
    CompactTree(const TriangleMesh& triangles, bool isFirst);

    const TriangleMesh& getMesh() const { return mesh; }
    const std::vector<std::uint32_t>& getWildTriangles() const { return wild; }
    bool isEmpty() const { return numbers.empty(); }
    const Node& getNode(std::uint32_t node) const { return nodes[node]; }
    const std::uint32_t* getNumbers() const { return numbers.data(); }
    float getInverseSine(std::uint32_t triangle) const { return inverseSines[triangle]; }
    /// References to nodes end here.
    void open(std::uint32_t node) {
        if (!nodes[node].isOpen) split(node);
    }

private:
    void split(std::uint32_t node);
    /// Moves its lower triangles in front of the others.
    void partition(const Node& node, Node& low, Node& high);
    Node createNode(std::uint32_t begin, std::uint32_t end) const;
    void grow(Node& node, std::uint32_t triangle, const QuadBox& box) const;

    TriangleMesh mesh;
    std::vector<std::uint32_t> numbers;
    std::vector<float> inverseSines;
    std::vector<std::uint32_t> wild;
    std::vector<Node> nodes;
};

} // namespace tesk::measurement::acceleration
