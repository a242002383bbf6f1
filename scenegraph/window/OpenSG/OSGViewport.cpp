#include <OpenSG/OSGViewport.h>

#include <OpenSG/OSGBackground.h>
#include <OpenSG/OSGCamera.h>
#include <OpenSG/OSGDrawActionBase.h>
#include <OpenSG/OSGWindow.h>

#include <GL/gl.h>

namespace osg {

OSG_CONTAINER_DEF(Viewport)

namespace {

bool isInPixels(Real32 edge) { return edge > 1.0f; }

Int32 firstPixel(Real32 edge, Real32 extent) { return static_cast<Int32>(isInPixels(edge) ? edge : extent * edge); }

Int32 lastPixel(Real32 edge, Real32 extent) {
    return static_cast<Int32>(isInPixels(edge) ? edge : extent * edge - 1.0f);
}

} // namespace

Viewport::~Viewport() {
    if (parent != NullFC) parent->subPort(ViewportPtr(*this));
}

void Viewport::setSize(Real32 newLeft, Real32 newBottom, Real32 newRight, Real32 newTop) {
    left = newLeft;
    bottom = newBottom;
    right = newRight;
    top = newTop;
}

Int32 Viewport::getPixelLeft() const { return firstPixel(left, getWindowWidth()); }

Int32 Viewport::getPixelRight() const { return lastPixel(right, getWindowWidth()); }

Int32 Viewport::getPixelBottom() const { return firstPixel(bottom, getWindowHeight()); }

Int32 Viewport::getPixelTop() const { return lastPixel(top, getWindowHeight()); }

Real32 Viewport::getWindowWidth() const { return parent == NullFC ? 0.0f : static_cast<Real32>(parent->getWidth()); }

Real32 Viewport::getWindowHeight() const { return parent == NullFC ? 0.0f : static_cast<Real32>(parent->getHeight()); }

bool Viewport::isFullWindow() const {
    return parent != NullFC && getPixelLeft() == 0 && getPixelBottom() == 0 &&
           getPixelRight() == parent->getWidth() - 1 && getPixelTop() == parent->getHeight() - 1;
}

void Viewport::activate() {
    const GLsizei width = osgMax(getPixelWidth(), 0), height = osgMax(getPixelHeight(), 0);
    glViewport(getPixelLeft(), getPixelBottom(), width, height);
    if (isFullWindow()) return;
    glScissor(getPixelLeft(), getPixelBottom(), width, height);
    glEnable(GL_SCISSOR_TEST);
}

void Viewport::deactivate() { glDisable(GL_SCISSOR_TEST); }

void Viewport::render(DrawActionBase* action) {
    if (camera == NullFC || root == NullFC || background == NullFC) return;
    activate();
    action->setWindow(parent.getCPtr());
    action->setViewport(this);
    action->setCamera(camera.getCPtr());
    action->setBackground(background.getCPtr());
    action->setTravMask(travMask);
    action->apply(root);
    deactivate();
}

} // namespace osg
