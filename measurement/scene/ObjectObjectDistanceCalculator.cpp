#include <measurement/scene/ObjectObjectDistanceCalculator.h>

#include <measurement/acceleration/pairs/TreeDistance.h>
#include <measurement/geometry/detail/Constants.h>
#include <measurement/scene/ChildEnumerator.h>
#include <measurement/scene/detail/CandidateQueue.h>
#include <measurement/scene/detail/GeometrySnapshot.h>
#include <measurement/scene/detail/WorldBox.h>

#include <algorithm>
#include <vector>

namespace tesk::measurement {

/// A node's own triangles in world coordinates.
struct detail::LeafTree {
    GeometrySnapshot snapshot;
    acceleration::LazyTree tree;

    explicit LeafTree(const osg::NodePtr& node)
        : snapshot(osg::GeometryPtr::dcast(node->getCore()), node->getToWorld()), tree(snapshot.getMesh()) {}
};

namespace {

std::vector<osg::NodePtr> enumerateChildren(const osg::NodePtr& node) {
    std::vector<osg::NodePtr> children;
    for (ChildEnumerator enumerator(node); enumerator.hasNext();) children.push_back(enumerator.next());
    return children;
}

bool hasVolume(const osg::NodePtr& node) { return node != osg::NullFC && !detail::getWorldBox(node).isEmpty; }

bool hasNoChildren(const osg::NodePtr& node) { return node->getMFChildren()->empty(); }

} // namespace

ObjectObjectDistanceCalculator::ObjectObjectDistanceCalculator()
    : candidates(std::make_unique<detail::CandidateQueue<CandidatePair>>()) {}

ObjectObjectDistanceCalculator::~ObjectObjectDistanceCalculator() = default;

void ObjectObjectDistanceCalculator::calc(const osg::NodePtr& first, const osg::NodePtr& second) {
    node1 = first;
    node2 = second;
    findObjectObjectDistance(first, second);
}

void ObjectObjectDistanceCalculator::findObjectObjectDistance(const osg::NodePtr& first, const osg::NodePtr& second) {
    trees.clear();
    nodePairCount = 0;
    trianglePairCount = 0;
    squaredDistance = detail::largestFloat;
    if (first == osg::NullFC || second == osg::NullFC) return;
    float lower;
    getDistances(first, second, &lower, &squaredDistance);
    insertCandidate(first, second, lower);
    refineCandidateList();
    trees.clear();
}

void ObjectObjectDistanceCalculator::getDistances(const osg::NodePtr& first, const osg::NodePtr& second, float* lower,
                                                  float* upper) const {
    const detail::DistanceBounds bounds =
        detail::distanceBounds(detail::getWorldBox(first).bounds, detail::getWorldBox(second).bounds);
    *lower = bounds.lower;
    *upper = bounds.upper;
}

void ObjectObjectDistanceCalculator::insertPair(const osg::NodePtr& first, const osg::NodePtr& second) {
    float lower, upper;
    getDistances(first, second, &lower, &upper);
    // An equal bound is let in, but not looked into unless it is below the best when it is taken.
    if (!(lower <= squaredDistance)) return;
    if (upper < squaredDistance) squaredDistance = upper;
    insertCandidate(first, second, lower);
}

void ObjectObjectDistanceCalculator::insertCandidate(const osg::NodePtr& first, const osg::NodePtr& second,
                                                     float lower) {
    candidates->insert({first, second, lower, hasNoChildren(first) && hasNoChildren(second)}, squaredDistance);
}

void ObjectObjectDistanceCalculator::refineCandidateList() {
    while (!candidates->isEmpty()) {
        const CandidatePair pair = candidates->takeFirst();
        if (!(pair.lowerBound < squaredDistance)) break;
        if (pair.leaves) {
            testGeometries(pair.node1, pair.node2);
        } else {
            refineCandidatePair(pair.node1, pair.node2);
        }
    }
    candidates->clear();
}

void ObjectObjectDistanceCalculator::refineCandidatePair(const osg::NodePtr& first, const osg::NodePtr& second) {
    std::vector<osg::NodePtr> children1 = enumerateChildren(first);
    std::vector<osg::NodePtr> children2 = enumerateChildren(second);
    if (children1.empty() && children2.empty()) return;
    // A node that enumerates no child stays itself, whether its volume is empty or not.
    const auto keepVolumes = [](const osg::NodePtr& node, std::vector<osg::NodePtr>& children) {
        if (children.empty()) {
            children.push_back(node);
        } else {
            children.erase(
                std::remove_if(children.begin(), children.end(), [](const auto& c) { return !hasVolume(c); }),
                children.end());
        }
    };
    keepVolumes(first, children1);
    keepVolumes(second, children2);
    for (const osg::NodePtr& child1 : children1)
        for (const osg::NodePtr& child2 : children2) insertPair(child1, child2);
}

void ObjectObjectDistanceCalculator::testGeometries(const osg::NodePtr& first, const osg::NodePtr& second) {
    const acceleration::TreeDistance search(getTree(first).tree, getTree(second).tree, squaredDistance);
    nodePairCount += search.getNodePairCount();
    trianglePairCount += search.getTrianglePairCount();
    if (search.getSquaredDistance() < squaredDistance) {
        squaredDistance = search.getSquaredDistance();
        node1 = first;
        node2 = second;
        point1 = search.getClosestPoint1();
        point2 = search.getClosestPoint2();
    }
}

detail::LeafTree& ObjectObjectDistanceCalculator::getTree(const osg::NodePtr& node) {
    std::unique_ptr<detail::LeafTree>& tree = trees[node];
    if (!tree) tree = std::make_unique<detail::LeafTree>(node);
    return *tree;
}

} // namespace tesk::measurement
