#include <platform/tkUberCameraUtils.h>

#include <platform/cores/UberCamera.h>

#include <OpenSG/OSGOrthographicCamera.h>
#include <OpenSG/OSGPerspectiveCamera.h>

bool tkUberCameraUtils::isOrthographicCamera(const osg::CameraPtr& camera) {
    if (camera == osg::NullFC || osg::PerspectiveCameraPtr::dcast(camera) != osg::NullFC) return false;
    if (osg::OrthographicCameraPtr::dcast(camera) != osg::NullFC) return true;
    const osg::UberCameraPtr uberCamera = osg::UberCameraPtr::dcast(camera);
    if (uberCamera != osg::NullFC) return uberCamera->getOrthographic();
    osg::Matrix projection;
    camera->getProjection(projection, 1, 1);
    // What points are divided by does not depend on where they are.
    return projection[0][3] == 0.0f && projection[1][3] == 0.0f && projection[2][3] == 0.0f;
}
