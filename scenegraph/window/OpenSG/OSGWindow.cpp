#include <OpenSG/OSGWindow.h>

#include <OpenSG/OSGDrawActionBase.h>
#include <OpenSG/OSGPassiveWindow.h>

#include <GL/gl.h>

#include <cstdio>

namespace osg {

OSG_ABSTRACT_CONTAINER_DEF(Window)
OSG_CONTAINER_DEF(PassiveWindow)

Window::~Window() {
    for (const ViewportPtr& port : ports) port->parent = NullFC;
}

void Window::setSize(UInt16 newWidth, UInt16 newHeight) {
    width = newWidth;
    height = newHeight;
}

void Window::resize(int newWidth, int newHeight) {
    setSize(static_cast<UInt16>(newWidth), static_cast<UInt16>(newHeight));
}

void Window::addPort(const ViewportPtr& port) {
    if (port == NullFC) return;
    const ViewportPtr added = port;
    if (added->parent != NullFC) added->parent->subPort(added);
    ports.push_back(added);
    added->parent = WindowPtr(*this);
}

void Window::subPort(const ViewportPtr& port) {
    const auto position = ports.find(port);
    if (position != ports.end()) subPort(static_cast<UInt32>(position - ports.begin()));
}

void Window::subPort(UInt32 index) {
    ports[index]->parent = NullFC;
    ports.erase(ports.begin() + index);
}

void Window::init() {
    glDepthFunc(GL_LEQUAL);
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_NORMALIZE);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
}

void Window::frameExit() {
    // A context that is lost reports an error for ever.
    for (int count = 0; count < 16; ++count) {
        const GLenum error = glGetError();
        if (error == GL_NO_ERROR) return;
        std::fprintf(stderr, "WARNING: Window::frameExit: OpenGL error 0x%04x.\n", error);
    }
}

void Window::renderAllViewports(DrawActionBase* action) {
    for (const ViewportPtr& port : ports) port->render(action);
}

void Window::render(DrawActionBase* action) {
    activate();
    frameInit();
    renderAllViewports(action);
    swap();
    frameExit();
}

} // namespace osg
