#include <measurement/scene/BoundingVolumeTree.h>

#include <measurement/scene/detail/GeometryPrimitives.h>
#include <measurement/scene/detail/NodeGeometry.h>
#include <measurement/scene/detail/SubtreeWalk.h>

namespace tesk::measurement {

BoundingVolumeTree::BoundingVolumeTree(const osg::NodePtr& node) { build(node, false); }

void BoundingVolumeTree::build(const osg::NodePtr& node, bool recursive) {
    buildRec(node, recursive);
    build();
}

void BoundingVolumeTree::build(const std::list<Segment>& segments) {
    for (const Segment& segment : segments) pushTriangle({segment.start, segment.end, segment.end});
    build();
}

void BoundingVolumeTree::buildRec(const osg::NodePtr& node, bool recursive) {
    if (recursive) {
        detail::visitSubtree(node, [this](const osg::NodePtr& visited) { pushGeometry(visited); });
    } else if (node != osg::NullFC) {
        pushGeometry(node);
    }
}

void BoundingVolumeTree::pushGeometry(const osg::NodePtr& node) {
    const osg::GeometryPtr geometry = detail::getGeometry(node);
    if (geometry == osg::NullFC) return;
    const osg::Matrix toWorld = node->getToWorld();
    detail::forEachTriangle(geometry, [&](const Triangle& local) {
        Triangle world;
        toWorld.multMatrixPnt(local.p0, world.p0);
        toWorld.multMatrixPnt(local.p1, world.p1);
        toWorld.multMatrixPnt(local.p2, world.p2);
        pushTriangle(world);
    });
}

} // namespace tesk::measurement
