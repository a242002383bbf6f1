#pragma once

#include <measurement/scene/BoundingVolumeTree.h>

#include <cstdint>
#include <memory>

namespace tesk::measurement {

namespace detail {
template <class CandidatePair> class CandidateQueue;
}

/// The smallest distance between the triangles of two trees, with the two closest points.
///
/// Both trees share one frame (world coordinates when built from nodes); points are in that frame,
/// the distance squared in its units. The trees are read during construction only.
///
/// The bound is a squared distance: pairs that are not closer are of no interest, and the search
/// ends sooner. 3.4028235e38, the largest float, asks for the true minimum. The bound also shrinks
/// to the farthest corners of any two boxes that meet in the search. When no pair of triangles is
/// closer than the bound, which includes the case that one equals it, the squared distance is the
/// bound and both points stay at the origin: use the points only when the squared distance is below
/// the bound that was passed. So it is with empty trees. Boxes with infinite corners may make the
/// squared distance NaN, the points at the origin.
///
/// Distances between triangles are those of DistanceTriangleTriangle, its deviations included; of
/// equal distances the first met stays. Every pair that touches and is tested writes the line "Zero
/// distance with tri!" to standard output.
///
/// Cost: cheap for objects that lie apart; for surfaces that run close to each other over a wide
/// area the pairs of nodes may outnumber the triangles by far.
///
/// Method: best-first search over pairs of nodes by the distance of their boxes (Hjaltason and
/// Samet, Distance browsing in spatial databases, 1999).
///
/// \code
/// const DistanceBoundingVolumeTree search(tree1, tree2, best);
/// if (search.getSquaredDistance() < best) nearest = search.getClosestPoint1();
/// \endcode
class TESK_MEASUREMENT_EXPORT DistanceBoundingVolumeTree {
public:
    DistanceBoundingVolumeTree(const BoundingVolumeTree& tree1, const BoundingVolumeTree& tree2, float bound);
    ~DistanceBoundingVolumeTree();

    /// On the first tree's triangles.
    const osg::Pnt3f& getClosestPoint1() const { return closestPoint1; }
    /// On the second tree's triangles.
    const osg::Pnt3f& getClosestPoint2() const { return closestPoint2; }
    float getSquaredDistance() const { return squaredDistance; }

    /// Diagnostics: pairs of tree nodes that the search looked into.
    std::uint64_t getNodePairCount() const { return nodePairCount; }
    /// Diagnostics: pairs of triangles whose exact distance was computed.
    std::uint64_t getTrianglePairCount() const { return trianglePairCount; }

private:
    struct CandidatePair {
        const BoundingVolumeNode* node1;
        const BoundingVolumeNode* node2;
        float lowerBound;
    };

    void calcDistance(const BoundingVolumeTree& tree1, const BoundingVolumeTree& tree2, float bound);
    void getDistances(const BoundingVolumeNode* node1, const BoundingVolumeNode* node2, float* lower,
                      float* upper) const;
    void insertPair(const BoundingVolumeNode* node1, const BoundingVolumeNode* node2);
    void refineCandidates(const BoundingVolumeNode* node1, const BoundingVolumeNode* node2);
    void testTriangles(const BoundingVolumeNode* node1, const BoundingVolumeNode* node2);
    void testTrianglePair(const Triangle& triangle1, const Triangle& triangle2);

    osg::Pnt3f closestPoint1{0.0f, 0.0f, 0.0f};
    osg::Pnt3f closestPoint2{0.0f, 0.0f, 0.0f};
    float squaredDistance = 0.0f;
    std::unique_ptr<detail::CandidateQueue<CandidatePair>> candidates;
    std::uint64_t nodePairCount = 0;
    std::uint64_t trianglePairCount = 0;
};

} // namespace tesk::measurement
