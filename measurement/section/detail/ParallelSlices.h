#pragma once

#include <OpenSG/OSGNode.h>

#include <measurement/geometry/Primitives.h>
#include <measurement/geometry/detail/Box.h>
#include <measurement/section/detail/PlaneCuts.h>

#include <cstddef>
#include <utility>
#include <vector>

namespace tesk::measurement::detail {

/// The outlines of many parallel planes.
///
/// A block of planes goes through the scene together. It has as many planes as cut about `crossingLimit` triangles in
/// all, one that many planes cut being counted as often, and at least one; that bounds the memory. Of a block, the
/// outlines of some planes are made at a time.
class ParallelSlices {
public:
    static constexpr std::size_t crossingLimit = 1 << 21;

    ParallelSlices(const osg::NodePtr& node, const osg::Vec3f& planeNormal) : root(node), normal(planeNormal) {}

    /// Calls visit(outline) for each plane, with a vector of segments.
    template <class Visitor> void forEachOutline(const std::vector<float>& planeOffsets, Visitor visit) {
        for (std::size_t begin = 0; begin < planeOffsets.size(); begin += blockSize) {
            cutBlock(planeOffsets.data() + begin, planeOffsets.size() - begin);
            for (std::size_t plane = 0; plane < blockSize;) {
                const std::size_t count = makeOutlines(plane);
                for (std::size_t i = 0; i < count; ++i) visit(std::as_const(outlines[i]));
                plane += count;
            }
        }
    }

private:
    using PlaneRange = acceleration::PlaneRange;

    void cutBlock(const float* planeOffsets, std::size_t planeCount);
    void cutTriangles();
    void sortPlanes();
    /// Those of the range that do not have the box on one side.
    PlaneRange planesThrough(const Box& box, const PlaneRange& range) const;
    void addCuts(const osg::NodePtr& node, const PlaneRange& range);
    /// Whether the walk goes for nothing, as there is too much that the planes cut.
    bool isBlockTooLarge() const { return cuts.isAbove(crossingLimit) && blockSize > 1; }
    /// Those of the first planes from one on; returns of how many.
    std::size_t makeOutlines(std::size_t firstPlane);
    std::size_t countCrossings(std::size_t plane) const;
    void clearOutlines(std::size_t count);

    osg::NodePtr root;
    osg::Vec3f normal;
    std::size_t likelyBlockSize = 128;

    /// The block.
    const float* offsets = nullptr;
    std::size_t blockSize = 0;
    /// The numbers of its planes from the lowest, whose offset is the greatest, to the highest, without NaN.
    std::vector<std::size_t> order;
    /// Where each plane is in the order; NaN nowhere.
    std::vector<std::size_t> places;
    PlaneCuts cuts;
    std::vector<float> localOffsets;
    std::vector<std::vector<Segment>> outlines;
};

} // namespace tesk::measurement::detail
