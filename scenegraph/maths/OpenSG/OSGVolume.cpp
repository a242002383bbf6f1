#include <OpenSG/OSGVolume.h>

namespace osg {

Volume::~Volume() = default;

void Volume::setState(UInt16 newState) { state = newState; }

void Volume::setEmpty(bool value) {
    if (value) {
        changeState(ValidState, true);
        changeState(InfiniteState, false);
        changeState(AlwaysVisibleState, false);
    }
    changeState(EmptyState, value);
}

void Volume::setInfinite(bool value) {
    if (value) {
        changeState(ValidState, true);
        changeState(EmptyState, false);
    }
    changeState(InfiniteState, value);
}

Pnt3f Volume::getMin() const {
    Pnt3f minimum, maximum;
    getBounds(minimum, maximum);
    return minimum;
}

Pnt3f Volume::getMax() const {
    Pnt3f minimum, maximum;
    getBounds(minimum, maximum);
    return maximum;
}

} // namespace osg
