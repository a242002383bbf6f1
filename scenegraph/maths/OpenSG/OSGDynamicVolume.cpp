#include <OpenSG/OSGDynamicVolume.h>

namespace osg {

void DynamicVolume::setState(UInt16 newState) {
    Volume::setState(newState);
    instance.setState(newState);
}

void DynamicVolume::extendBy(const Pnt3f& point) {
    instance.extendBy(point);
    instanceChanged();
}

void DynamicVolume::extendBy(const Volume& volume) {
    instance.extendBy(volume);
    instanceChanged();
}

} // namespace osg
