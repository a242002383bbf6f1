#include <apps/measure/NodeListing.h>

#include <OpenSG/OSGDynamicVolume.h>
#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGTransform.h>

namespace tesk::measure {

std::optional<Bounds> worldBounds(const osg::NodePtr& node) {
    osg::DynamicVolume volume;
    node->getWorldVolume(volume);
    if (volume.isEmpty()) return std::nullopt;
    Bounds bounds;
    volume.getBounds(bounds.lower, bounds.upper);
    return bounds;
}

std::string nodeKind(const CatalogueNode& node) {
    const osg::NodeCorePtr core = node.node->getCore();
    if (osg::TransformPtr::dcast(core) != osg::NullFC) return "transform";
    if (osg::GeometryPtr::dcast(core) == osg::NullFC) return "group";
    if (node.content.triangles > 0) return node.content.lines > 0 ? "mixed" : "triangles";
    return node.content.lines > 0 ? "lines" : "empty";
}

} // namespace tesk::measure
