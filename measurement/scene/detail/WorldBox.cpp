#include <measurement/scene/detail/WorldBox.h>

#include <measurement/scene/detail/GeometryRepair.h>

#include <OpenSG/OSGDynamicVolume.h>

namespace tesk::measurement::detail {

WorldBox getWorldBox(const osg::NodePtr& node) {
    computeDoubtfulVolumes(node);
    osg::DynamicVolume volume;
    node->getWorldVolume(volume);
    WorldBox box;
    volume.getBounds(box.bounds.min, box.bounds.max);
    box.isEmpty = volume.isEmpty();
    return box;
}

} // namespace tesk::measurement::detail
