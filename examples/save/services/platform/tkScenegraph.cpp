#include <platform/tkScenegraph.h>

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGNodePtr.h>
#include <OpenSG/OSGSimpleAttachments.h>

namespace {

osg::NodePtr shownRoot = osg::NullFC;

bool bearsName(const osg::NodePtr& node, const std::string& name) {
    const osg::Char8* const own = osg::getName(node);
    return own != nullptr && own == name;
}

osg::NodePtr findBelow(const osg::NodePtr& parent, const std::string& name) {
    for (osg::UInt32 i = 0; i < parent->getNChildren(); ++i) {
        const osg::NodePtr child = parent->getChild(i);
        if (bearsName(child, name)) return child;
        const osg::NodePtr found = findBelow(child, name);
        if (found != osg::NullFC) return found;
    }
    return osg::NullFC;
}

osg::NodePtr makeHeldGroup() {
    const osg::NodePtr group = osg::makeCoredNode<osg::Group>();
    osg::addRefCP(group);
    return group;
}

} // namespace

void tkScenegraph::setRoot(const osg::NodePtr& node) { shownRoot = node; }

osg::NodePtr tkScenegraph::getRoot() { return shownRoot; }

osg::NodePtr tkScenegraph::getInternalRoot() {
    static const osg::NodePtr internalRoot = makeHeldGroup();
    return internalRoot;
}

osg::NodePtr tkScenegraph::findNode(const std::string& name) {
    return shownRoot == osg::NullFC || name.empty() ? osg::NodePtr(osg::NullFC) : findBelow(shownRoot, name);
}
