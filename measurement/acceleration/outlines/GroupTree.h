#pragma once

#include <measurement/acceleration/TriangleMesh.h>
#include <measurement/acceleration/outlines/SegmentFilter.h>

#include <vector>

namespace tesk::measurement::acceleration {

/// Boxes around every eight triangles, a group, around every eight of these boxes, and so on.
///
/// Triangles next to each other in a mesh are mostly next to each other in space as well and are taken in the mesh's
/// order; where boxes come out too large, in one along a curve through space. The mesh's arrays must outlive the tree.
///
/// Memory: 4 bytes a triangle, in that other order 8, and 24 while it sorts.
class GroupTree {
public:
    static constexpr std::size_t groupSize = 8;

    explicit GroupTree(const TriangleMesh& triangles);

    const TriangleMesh& getMesh() const { return mesh; }
    /// Of the triangles whose blur is finite.
    float getLargestCoordinate() const { return largestCoordinate; }

    /// How many levels of boxes there are, none for an empty mesh. The boxes of level 0 are those of groups; the last
    /// level has up to eight.
    std::size_t getLevelCount() const { return levels.size(); }
    std::size_t getBoxCount(std::size_t level) const { return boxCounts[level]; }
    /// Eight boxes, beginning with number 8 * `block`. Those behind the last mean nothing.
    const BlurredBoxLanes& getBoxes(std::size_t level, std::size_t block) const { return levels[level][block]; }

    /// How many triangles a group has, eight but in the last.
    std::size_t getSize(std::size_t group) const;
    /// The number of a triangle by its place in a group.
    std::uint32_t getNumber(std::size_t group, std::size_t place) const {
        const std::size_t i = group * groupSize + place;
        return order.empty() ? static_cast<std::uint32_t>(i) : order[i];
    }
    const osg::Pnt3f& getCorner(std::size_t group, std::size_t place, std::size_t which) const {
        return mesh.corner(getNumber(group, place), which);
    }

private:
    /// How large the boxes of the groups are, by the size of the triangles.
    float build();
    /// Boxes that grow(box number, place, box) makes from eight each of so many.
    template <class Grow> void addLevel(std::size_t count, Grow grow);

    TriangleMesh mesh;
    float largestCoordinate = 0.0f;
    std::vector<std::vector<BlurredBoxLanes>> levels;
    std::vector<std::size_t> boxCounts;
    /// The triangles' numbers, or empty for those of the mesh's order.
    std::vector<std::uint32_t> order;
};

} // namespace tesk::measurement::acceleration
