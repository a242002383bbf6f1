#include <platform/detail/DocumentOrder.h>

#include <OpenSG/OSGNodeCore.h>
#include <OpenSG/OSGSimpleAttachments.h>

namespace tesk::platform::detail {

bool bearsName(const osg::NodePtr& node, const std::string& name) {
    const char* text = osg::getName(node);
    if (text == nullptr) text = osg::getName(node->getCore());
    return text != nullptr && name == text;
}

bool DocumentOrder::advance() {
    while (!ancestors.empty()) {
        auto& [node, entered] = ancestors.back();
        if (entered < node->getNChildren()) {
            const osg::NodePtr child = node->getChild(entered++);
            ancestors.emplace_back(child, 0);
            return true;
        }
        ancestors.pop_back();
    }
    return false;
}

} // namespace tesk::platform::detail
