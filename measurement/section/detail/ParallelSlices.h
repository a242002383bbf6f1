#pragma once

#include <OpenSG/OSGNode.h>

#include <measurement/acceleration/PlaneRanks.h>
#include <measurement/geometry/Primitives.h>
#include <measurement/geometry/detail/Box.h>

#include <cstddef>
#include <utility>
#include <vector>

namespace tesk::measurement::detail {

/// The outlines of many parallel planes.
///
/// A block of planes goes through the scene together. It has as many planes as have about `segmentLimit` segments in
/// their outlines, and at least one; that bounds the memory.
class ParallelSlices {
public:
    static constexpr std::size_t segmentLimit = 1 << 20;

    ParallelSlices(const osg::NodePtr& node, const osg::Vec3f& planeNormal) : root(node), normal(planeNormal) {}

    /// Calls visit(outline) for each plane, with a vector of segments.
    template <class Visitor> void forEachOutline(const std::vector<float>& planeOffsets, Visitor visit) {
        for (std::size_t begin = 0; begin < planeOffsets.size(); begin += blockSize) {
            cutBlock(planeOffsets.data() + begin, planeOffsets.size() - begin);
            for (std::size_t plane = 0; plane < blockSize; ++plane) visit(std::as_const(outlines[plane]));
        }
    }

private:
    using PlaneRange = acceleration::PlaneRange;

    void cutBlock(const float* planeOffsets, std::size_t planeCount);
    void createSlicesRec();
    void clearOutlines();
    void sortPlanes();
    /// Those of the range that do not have the box on one side.
    PlaneRange planesThrough(const Box& box, const PlaneRange& range) const;
    void addSlices(const osg::NodePtr& node, const PlaneRange& range);
    template <class Iterator>
    void addGenericSlices(Iterator triangle, const osg::Vec3f& localNormal, const osg::Matrix& toWorld);
    /// Whether the walk goes for nothing, as its outlines have too many segments together.
    bool isBlockTooLarge() const { return segmentCount > segmentLimit && blockSize > 1; }

    osg::NodePtr root;
    osg::Vec3f normal;
    std::size_t likelyBlockSize = 128;

    /// The block.
    const float* offsets = nullptr;
    std::size_t blockSize = 0;
    std::vector<std::vector<Segment>> outlines;
    std::size_t segmentCount = 0;
    /// The numbers of its planes from the lowest, whose offset is the greatest, to the highest, without NaN.
    std::vector<std::size_t> order;

    /// The geometry that is being cut: numbers and local offsets of the planes that meet it.
    std::vector<std::size_t> localPlanes;
    std::vector<float> localOffsets;
    acceleration::PlaneRanks ranks;
};

} // namespace tesk::measurement::detail
