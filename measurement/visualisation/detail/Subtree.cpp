#include <measurement/visualisation/detail/Subtree.h>

#include <measurement/model/detail/GroupNode.h>

#include <OpenSG/OSGNodePtr.h>

namespace tesk::measurement::detail {

osg::NodePtr createParent(const osg::NodeCorePtr& core, std::initializer_list<osg::NodePtr> children) {
    const osg::NodePtr node = osg::makeNodeFor(core);
    const osg::CPEditor edit(node, osg::Node::ChildrenFieldMask);
    for (const osg::NodePtr& child : children) node->addChild(child);
    return node;
}

osg::NodePtr createGeometry(const osg::MaterialPtr& material) {
    osg::GeometryPtr geometry;
    const osg::NodePtr node = osg::makeCoredNode<osg::Geometry>(&geometry);
    const osg::CPEditor edit(geometry, osg::Geometry::MaterialFieldMask);
    geometry->setMaterial(material);
    return node;
}

osg::NodePtr shareCores(const osg::NodePtr& subtree) {
    const osg::NodePtr node = osg::makeNodeFor(subtree->getCore());
    for (osg::UInt32 child = 0; child < subtree->getNChildren(); ++child)
        addChild(node, shareCores(subtree->getChild(child)), osg::Node::ChildrenFieldMask);
    return node;
}

void showIf(bool isDrawable, const osg::NodePtr& node) {
    const bool isHidden = node->getTravMask() == 0;
    if (isDrawable == isHidden) setShown(node, isDrawable);
}

} // namespace tesk::measurement::detail
