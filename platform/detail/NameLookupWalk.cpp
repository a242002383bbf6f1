#include <platform/detail/NameLookup.h>

#include <platform/detail/DocumentOrder.h>

namespace tesk::platform::detail {

osg::NodePtr findNamedNode(const osg::NodePtr& root, const std::string& name) {
    DocumentOrder walk(root);
    while (walk.advance())
        if (bearsName(walk.getNode(), name)) return walk.getNode();
    return osg::NullFC;
}

} // namespace tesk::platform::detail
