#pragma once

#include <OpenSG/OSGAction.h>
#include <OpenSG/OSGMatrix.h>

namespace osg {

class Background;
class Camera;
class Node;
class Viewport;
class Window;

/// What every action that draws knows: where it draws to, and from where the scene is seen.
///
/// A viewport sets all of it before it applies the action to its root. Nothing here is owned.
class OSG_SYSTEMLIB_DLLMAPPING DrawActionBase : public Action {
public:
    Viewport* getViewport() const { return viewport; }
    void setViewport(Viewport* target) { viewport = target; }
    Camera* getCamera() const { return camera; }
    void setCamera(Camera* view) { camera = view; }
    Background* getBackground() const { return background; }
    void setBackground(Background* backdrop) { background = backdrop; }
    Window* getWindow() const { return window; }
    void setWindow(Window* target) { window = target; }

    /// From the camera's frame, in which it looks along -z, to the world's; as of the start of the last traversal.
    const Matrix& getCameraToWorld() const { return cameraToWorld; }

    /// Whether subtrees are left out whose volumes lie outside of what the camera sees.
    bool getFrustumCulling() const { return frustumCulling; }
    void setFrustumCulling(bool use = true) { frustumCulling = use; }

    /// Whether the camera may see something of the node, by its volume. Meant for the children of the current node and
    /// for that node itself as long as its own matrix is not pushed.
    virtual bool isVisible(Node* node) = 0;

protected:
    DrawActionBase() = default;

    /// Asks the camera for its place. Quits when the camera or the viewport is missing.
    ResultE start() override;

    /// As of the start of the last traversal, as getCameraToWorld().
    const Matrix& getWorldToCamera() const { return worldToCamera; }
    const Matrix& getProjection() const { return projection; }

private:
    Viewport* viewport = nullptr;
    Camera* camera = nullptr;
    Background* background = nullptr;
    Window* window = nullptr;
    Matrix worldToCamera;
    Matrix cameraToWorld;
    Matrix projection;
    bool frustumCulling = true;
};

} // namespace osg
