#include <platform/tkOSGWidget.h>

namespace {

osg::ViewportPtr& currentViewport() {
    static osg::ViewportPtr viewport;
    return viewport;
}

} // namespace

void tkOSGWidget::setViewport(const osg::ViewportPtr& viewport) { currentViewport() = viewport; }

osg::ViewportPtr tkOSGWidget::getViewport() { return currentViewport(); }

osg::CameraPtr tkOSGWidget::getCamera() {
    const osg::ViewportPtr viewport = getViewport();
    return viewport == osg::NullFC ? osg::CameraPtr() : viewport->getCamera();
}

osg::WindowPtr tkOSGWidget::getWindow() {
    const osg::ViewportPtr viewport = getViewport();
    return viewport == osg::NullFC ? osg::WindowPtr() : viewport->getParent();
}
