#include <measurement/model/detail/GroupNode.h>

#include <OpenSG/OSGGroup.h>

namespace tesk::measurement::detail {

namespace {

const osg::UInt32 shownMask = 0xFFFFFFFF;
const osg::UInt32 hiddenMask = 0;

} // namespace

osg::NodePtr createGroupNode() {
    const osg::NodePtr node = osg::Node::create();
    const osg::CPEditor edit(node);
    node->setCore(osg::Group::create());
    return node;
}

void addChild(const osg::NodePtr& parent, const osg::NodePtr& child, osg::BitVector changed) {
    const osg::CPEditor edit(parent, changed);
    parent->addChild(child);
}

void removeChild(const osg::NodePtr& parent, const osg::NodePtr& child, osg::BitVector changed) {
    const osg::CPEditor edit(parent, changed);
    parent->subChild(child);
}

void setShown(const osg::NodePtr& node, bool shown) {
    const osg::CPEditor edit(node, osg::Node::TravMaskFieldMask);
    node->setTravMask(shown ? shownMask : hiddenMask);
}

bool isShown(const osg::NodePtr& node) { return node->getTravMask() == shownMask; }

void hold(osg::RefPtr<osg::NodePtr>& holder, const osg::NodePtr& node) {
    const osg::RefPtr<osg::NodePtr> held(node);
    holder = held;
}

} // namespace tesk::measurement::detail
