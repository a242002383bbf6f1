#pragma once

#include <OpenSG/OSGNode.h>

#include <measurement/Export.h>

#include <cstdint>
#include <map>
#include <memory>

namespace tesk::measurement {

namespace detail {
template <class CandidatePair> class CandidateQueue;
struct LeafTree;
} // namespace detail

/// The smallest distance between the geometries of two scene subtrees, the two closest points and
/// the two nodes that carry them.
///
/// Points are in world coordinates, the distance is squared. Children are those of ChildEnumerator;
/// a child whose world volume is empty is left out. Only nodes without any children are measured,
/// by their own triangles, with the distances of DistanceBoundingVolumeTree (see there for touching
/// objects and the line on standard output). A pair of nodes with children of which none is
/// enumerated, such as a switch that shows nothing, is not measured.
///
/// Where no pair of triangles undercuts the bounds that the boxes set (there are no triangles, or
/// they collapse to points), the squared distance is such a bound and there are no closest points:
/// these keep their values from before, the nodes being the arguments, or are the origin. With a
/// null node nothing is searched: values from before, bound 3.4028235e38.
///
/// The scene must not change during a calculation. Nodes are not held by a reference: the results
/// are good as long as the objects live. A calculator may be used again and again; nothing of one
/// calculation but its results outlives it.
///
/// Cost: for every leaf node whose box is close enough one bounding volume tree, of which only those parts are built
/// that a search looks into, and the searches between the trees.
///
/// Method: best-first search over pairs of nodes by the distance of their world boxes (Hjaltason
/// and Samet, Distance browsing in spatial databases, 1999).
///
/// \code
/// ObjectObjectDistanceCalculator calculator;
/// calculator.calc(object1, object2);
/// const float gap = calculator.getPoint1().dist(calculator.getPoint2());
/// \endcode
class TESK_MEASUREMENT_EXPORT ObjectObjectDistanceCalculator {
public:
    ObjectObjectDistanceCalculator();
    ObjectObjectDistanceCalculator(const ObjectObjectDistanceCalculator&) = delete;
    ObjectObjectDistanceCalculator& operator=(const ObjectObjectDistanceCalculator&) = delete;
    ~ObjectObjectDistanceCalculator();

    void calc(const osg::NodePtr& first, const osg::NodePtr& second);
    /// As calc(), but where no closest points are found the nodes, too, keep their values.
    void findObjectObjectDistance(const osg::NodePtr& first, const osg::NodePtr& second);

    const osg::Pnt3f& getPoint1() const { return point1; }
    const osg::Pnt3f& getPoint2() const { return point2; }
    osg::NodePtr getNode1() const { return node1; }
    osg::NodePtr getNode2() const { return node2; }
    /// The squared distance of the two points when they were found, else the last bound.
    float getSquaredDistance() const { return squaredDistance; }

    /// Diagnostics: pairs of tree nodes that the searches of the last calculation looked into.
    std::uint64_t getNodePairCount() const { return nodePairCount; }
    /// Diagnostics: pairs of triangles whose exact distance the last calculation computed.
    std::uint64_t getTrianglePairCount() const { return trianglePairCount; }

private:
    struct CandidatePair {
        osg::NodePtr node1;
        osg::NodePtr node2;
        float lowerBound;
        bool leaves;
    };

    void reset();
    void getDistances(const osg::NodePtr& first, const osg::NodePtr& second, float* lower, float* upper) const;
    void insertPair(const osg::NodePtr& first, const osg::NodePtr& second);
    void insertCandidate(const osg::NodePtr& first, const osg::NodePtr& second, float lower);
    void refineCandidateList();
    void refineCandidatePair(const osg::NodePtr& first, const osg::NodePtr& second);
    void testGeometries(const osg::NodePtr& first, const osg::NodePtr& second);
    detail::LeafTree& getTree(const osg::NodePtr& node);

    osg::NodePtr node1;
    osg::NodePtr node2;
    osg::Pnt3f point1{0.0f, 0.0f, 0.0f};
    osg::Pnt3f point2{0.0f, 0.0f, 0.0f};
    float squaredDistance = 0.0f;
    std::unique_ptr<detail::CandidateQueue<CandidatePair>> candidates;
    std::map<osg::NodePtr, std::unique_ptr<detail::LeafTree>> trees;
    std::uint64_t nodePairCount = 0;
    std::uint64_t trianglePairCount = 0;
};

} // namespace tesk::measurement
