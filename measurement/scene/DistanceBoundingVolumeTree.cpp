#include <measurement/scene/DistanceBoundingVolumeTree.h>

#include <measurement/geometry/DistanceTriangleTriangle.h>
#include <measurement/geometry/detail/Box.h>
#include <measurement/scene/detail/CandidateQueue.h>

namespace tesk::measurement {

namespace {

detail::Box boxOf(const BoundingVolumeNode& node) { return {node.getMin(), node.getMax()}; }

} // namespace

DistanceBoundingVolumeTree::DistanceBoundingVolumeTree(const BoundingVolumeTree& tree1, const BoundingVolumeTree& tree2,
                                                       float bound)
    : candidates(std::make_unique<detail::CandidateQueue<CandidatePair>>()) {
    calcDistance(tree1, tree2, bound);
}

DistanceBoundingVolumeTree::~DistanceBoundingVolumeTree() = default;

void DistanceBoundingVolumeTree::calcDistance(const BoundingVolumeTree& tree1, const BoundingVolumeTree& tree2,
                                              float bound) {
    const BoundingVolumeNode* const root1 = tree1.getRoot();
    const BoundingVolumeNode* const root2 = tree2.getRoot();
    float lower, upper;
    getDistances(root1, root2, &lower, &upper);
    // A NaN on either side makes the result the upper bound.
    squaredDistance = bound <= upper ? bound : upper;
    candidates->insert({root1, root2, lower}, squaredDistance);
    while (!candidates->isEmpty()) {
        const CandidatePair pair = candidates->takeFirst();
        if (!(pair.lowerBound < squaredDistance)) break;
        ++nodePairCount;
        testTriangles(pair.node1, pair.node2);
        refineCandidates(pair.node1, pair.node2);
    }
    candidates->clear();
}

void DistanceBoundingVolumeTree::getDistances(const BoundingVolumeNode* node1, const BoundingVolumeNode* node2,
                                              float* lower, float* upper) const {
    const detail::DistanceBounds bounds = detail::distanceBounds(boxOf(*node1), boxOf(*node2));
    *lower = bounds.lower;
    *upper = bounds.upper;
}

void DistanceBoundingVolumeTree::insertPair(const BoundingVolumeNode* node1, const BoundingVolumeNode* node2) {
    if (node1 == nullptr || node2 == nullptr) return;
    float lower, upper;
    getDistances(node1, node2, &lower, &upper);
    if (!(lower < squaredDistance)) return;
    // Deliberate: the bound may shrink below every distance of triangles, which leaves the points unset.
    if (upper < squaredDistance) squaredDistance = upper;
    candidates->insert({node1, node2, lower}, squaredDistance);
}

void DistanceBoundingVolumeTree::refineCandidates(const BoundingVolumeNode* node1, const BoundingVolumeNode* node2) {
    // A node with triangles of its own stays whole, so that they meet every part of the other tree.
    const bool keeps1 = !node1->getTriangles().empty();
    const bool keeps2 = !node2->getTriangles().empty();
    if (keeps1) {
        insertPair(node1, node2->getLow());
        insertPair(node1, node2->getHigh());
    }
    if (keeps2) {
        insertPair(node1->getLow(), node2);
        insertPair(node1->getHigh(), node2);
    }
    if (!keeps1 && !keeps2) {
        insertPair(node1->getLow(), node2->getLow());
        insertPair(node1->getLow(), node2->getHigh());
        insertPair(node1->getHigh(), node2->getLow());
        insertPair(node1->getHigh(), node2->getHigh());
    }
}

void DistanceBoundingVolumeTree::testTriangles(const BoundingVolumeNode* node1, const BoundingVolumeNode* node2) {
    if (node1->getTriangles().empty() || node2->getTriangles().empty()) return;
    const detail::Box nodeBox2 = boxOf(*node2);
    for (const Triangle& triangle1 : node1->getTriangles()) {
        const detail::Box box1 = detail::boxOf(triangle1);
        if (!(detail::squaredGap(box1, nodeBox2) <= squaredDistance)) continue;
        for (const Triangle& triangle2 : node2->getTriangles()) {
            if (detail::squaredGap(box1, detail::boxOf(triangle2)) <= squaredDistance)
                testTrianglePair(triangle1, triangle2);
        }
    }
}

void DistanceBoundingVolumeTree::testTrianglePair(const Triangle& triangle1, const Triangle& triangle2) {
    ++trianglePairCount;
    const DistanceTriangleTriangle query(triangle1, triangle2);
    if (query.getSquaredDistance() < squaredDistance) {
        squaredDistance = query.getSquaredDistance();
        closestPoint1 = query.getClosestPoint1();
        closestPoint2 = query.getClosestPoint2();
    }
}

} // namespace tesk::measurement
