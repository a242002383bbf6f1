#pragma once

#include <measurement/acceleration/outlines/GroupTree.h>
#include <measurement/acceleration/pairs/LazyTree.h>

#include <cstdint>
#include <optional>
#include <vector>

namespace tesk::measurement::acceleration {

class OrderedSearch;

/// What DistanceBoundingVolumeTree answers for outlines, one after the other, against one mesh: to the bit, lines on
/// standard output included.
///
/// It is found as by TreeDistance, but the near pairs first, by SegmentPairs. What is known of the mesh is kept.
class OutlineDistance {
public:
    /// The mesh's arrays must outlive this.
    explicit OutlineDistance(const TriangleMesh& object);

    /// Without a limit. The outline must have a segment.
    void calcDistance(const std::vector<Segment>& outline);

    const osg::Pnt3f& getClosestPoint1() const { return closestPoint1; }
    const osg::Pnt3f& getClosestPoint2() const { return closestPoint2; }
    /// How many of the searches were restricted to near pairs.
    std::uint64_t getNearSearchCount() const { return nearSearchCount; }

private:
    void setOutline(const std::vector<Segment>& segments);
    bool searchNearPairs(LazyTree& outlineTree, float bound);
    void take(const OrderedSearch& search);

    LazyTree objectTree;
    std::optional<GroupTree> groups;
    std::vector<osg::Pnt3f> positions;
    std::vector<std::uint32_t> corners;
    TriangleMesh outline;
    /// One that was nearest to the last outline.
    std::uint32_t nearestTriangle = 0;

    osg::Pnt3f closestPoint1{0.0f, 0.0f, 0.0f};
    osg::Pnt3f closestPoint2{0.0f, 0.0f, 0.0f};
    std::uint64_t nearSearchCount = 0;
};

} // namespace tesk::measurement::acceleration
