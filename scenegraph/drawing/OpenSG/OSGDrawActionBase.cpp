#include <OpenSG/OSGDrawActionBase.h>

#include <OpenSG/OSGCamera.h>
#include <OpenSG/OSGViewport.h>

namespace osg {

Action::ResultE DrawActionBase::start() {
    if (!camera || !viewport) return Quit;
    const UInt32 width = static_cast<UInt32>(osgMax(viewport->getPixelWidth(), 0));
    const UInt32 height = static_cast<UInt32>(osgMax(viewport->getPixelHeight(), 0));
    camera->getViewing(worldToCamera, width, height);
    cameraToWorld.invertFrom(worldToCamera);
    camera->getProjection(projection, width, height);
    return Continue;
}

} // namespace osg
