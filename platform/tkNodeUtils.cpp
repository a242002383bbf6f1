#include <platform/tkNodeUtils.h>

#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <vector>

namespace {

// The mark is a second, nameless Name attachment: binding 0 keeps the node's real name.
const osg::UInt16 auxiliaryBinding = 0x7e5c;

osg::AttachmentPtr findMark(const osg::NodePtr& node) {
    return node->findAttachment(osg::Name::getClassType(), auxiliaryBinding);
}

using HeldNodes = std::vector<osg::RefPtr<osg::NodePtr>>;

// Children go last to first, which costs no shifting of their list.
void moveContent(const osg::NodePtr& node, HeldNodes& held) {
    const osg::CPEditor edit(node, osg::Node::ChildrenFieldMask | osg::Node::CoreFieldMask);
    while (node->getNChildren() > 0) {
        const osg::UInt32 last = node->getNChildren() - 1;
        held.emplace_back(node->getChild(last));
        node->subChild(last);
    }
    node->setCore(osg::NullFC);
}

} // namespace

void tkNodeUtils::setIsAuxiliaryNode(const osg::NodePtr& node, bool isAuxiliary) {
    if (node == osg::NullFC || isAuxiliaryNode(node) == isAuxiliary) return;
    const osg::CPEditor edit(node, osg::Node::AttachmentsFieldMask);
    if (isAuxiliary)
        node->addAttachment(osg::Name::create(), auxiliaryBinding);
    else
        node->subAttachment(findMark(node), auxiliaryBinding);
}

bool tkNodeUtils::isAuxiliaryNode(const osg::NodePtr& node) {
    return node != osg::NullFC && findMark(node) != osg::NullFC;
}

void tkNodeUtils::destroySubTree(const osg::NodePtr& node) {
    if (node == osg::NullFC) return;
    HeldNodes held;
    moveContent(node, held);
    while (!held.empty()) {
        // Released empty, so that no node's end brings on its children's.
        const osg::RefPtr<osg::NodePtr> next = held.back();
        held.pop_back();
        moveContent(next, held);
    }
}
