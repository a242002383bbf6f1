#include <measurement/model/NodeUtils.h>

#include <OpenSG/OSGNodeCore.h>
#include <OpenSG/OSGSimpleAttachments.h>

namespace tesk::measurement {

const char* NodeUtils::getName(const osg::NodePtr& node) {
    if (node == osg::NullFC) return nullptr;
    if (const char* const name = osg::getName(node)) return name;
    const osg::NodeCorePtr core = node->getCore();
    if (core == osg::NullFC) return nullptr;
    const char* const coreName = osg::getName(core);
    return coreName != nullptr ? coreName : core->getTypeName();
}

} // namespace tesk::measurement
