#include <platform/tkScenegraph.h>

#include <platform/detail/NameLookup.h>

#include <OpenSG/OSGGroup.h>

namespace {

// The reference is never given back: a static RefPtr would release it after the scene graph has shut down.
osg::NodePtr createHeldGroup() {
    const osg::NodePtr node = osg::Node::create();
    if (node == osg::NullFC) return node;
    osg::addRefCP(node);
    const osg::CPEditor edit(node, osg::Node::CoreFieldMask);
    node->setCore(osg::Group::create());
    return node;
}

osg::NodePtr createOnFirstUse(osg::NodePtr& node) {
    if (node == osg::NullFC) node = createHeldGroup();
    return node;
}

} // namespace

osg::NodePtr tkScenegraph::getRoot() {
    static osg::NodePtr root;
    return createOnFirstUse(root);
}

osg::NodePtr tkScenegraph::getInternalRoot() {
    static osg::NodePtr internalRoot;
    return createOnFirstUse(internalRoot);
}

osg::NodePtr tkScenegraph::findNode(const std::string& name) {
    const osg::NodePtr root = getRoot();
    if (name.empty() || root == osg::NullFC) return osg::NullFC;
    return tesk::platform::detail::findNamedNode(root, name);
}
