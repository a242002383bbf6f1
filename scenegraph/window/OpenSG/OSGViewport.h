#pragma once

#include <OpenSG/OSGNodePtr.h>

namespace osg {

class Background;
class Camera;
class DrawActionBase;
class Viewport;
class Window;
typedef FCPtr<AttachmentContainerPtr, Background> BackgroundPtr;
typedef FCPtr<AttachmentContainerPtr, Camera> CameraPtr;
typedef FCPtr<AttachmentContainerPtr, Viewport> ViewportPtr;
typedef FCPtr<AttachmentContainerPtr, Window> WindowPtr;
typedef MField<ViewportPtr> MFViewportPtr;
typedef RefPtr<ViewportPtr> ViewportRefPtr;

/// A rectangle of a window in which a camera shows a scene.
///
/// The window is the one that the viewport was added to; camera, root and background are set. None of them is held by a
/// reference: who sets them keeps them.
///
/// Each edge is measured from the window's bottom left corner: a value up to 1 as a fraction of the window, a larger
/// one in pixels. The pixel accessors give the first and last pixel inside. Edges in the wrong order give a size of 0
/// or less; without a window, edges given as fractions lie about 0.
class OSG_SYSTEMLIB_DLLMAPPING Viewport : public AttachmentContainer {
    OSG_CONTAINER(Viewport, AttachmentContainer)

public:
    enum : UInt32 {
        LeftFieldId = Inherited::NextFieldId,
        RightFieldId,
        BottomFieldId,
        TopFieldId,
        ParentFieldId,
        CameraFieldId,
        RootFieldId,
        BackgroundFieldId,
        TravMaskFieldId = BackgroundFieldId + 2,
        NextFieldId = TravMaskFieldId + 2
    };
    static constexpr BitVector LeftFieldMask = fieldMask(LeftFieldId);
    static constexpr BitVector RightFieldMask = fieldMask(RightFieldId);
    static constexpr BitVector BottomFieldMask = fieldMask(BottomFieldId);
    static constexpr BitVector TopFieldMask = fieldMask(TopFieldId);
    static constexpr BitVector ParentFieldMask = fieldMask(ParentFieldId);
    static constexpr BitVector CameraFieldMask = fieldMask(CameraFieldId);
    static constexpr BitVector RootFieldMask = fieldMask(RootFieldId);
    static constexpr BitVector BackgroundFieldMask = fieldMask(BackgroundFieldId);
    static constexpr BitVector TravMaskFieldMask = fieldMask(TravMaskFieldId);

    Real32 getLeft() const { return left; }
    Real32 getRight() const { return right; }
    Real32 getBottom() const { return bottom; }
    Real32 getTop() const { return top; }
    void setSize(Real32 newLeft, Real32 newBottom, Real32 newRight, Real32 newTop);

    const WindowPtr& getParent() const { return parent; }
    const CameraPtr& getCamera() const { return camera; }
    void setCamera(const CameraPtr& value) { camera = value; }
    const NodePtr& getRoot() const { return root; }
    void setRoot(const NodePtr& value) { root = value; }
    const BackgroundPtr& getBackground() const { return background; }
    void setBackground(const BackgroundPtr& value) { background = value; }
    /// Which nodes are drawn; all by default.
    UInt32 getTravMask() const { return travMask; }
    void setTravMask(UInt32 value) { travMask = value; }

    Int32 getPixelLeft() const;
    Int32 getPixelRight() const;
    Int32 getPixelBottom() const;
    Int32 getPixelTop() const;
    Int32 getPixelWidth() const { return getPixelRight() - getPixelLeft() + 1; }
    Int32 getPixelHeight() const { return getPixelTop() - getPixelBottom() + 1; }
    bool isFullWindow() const;

    /// Restricts the current OpenGL context to the viewport's pixels, until deactivate().
    void activate();
    void deactivate();
    /// Applies the action to the scene in the current OpenGL context, after telling it where to draw, what to see and
    /// which background to clear by, and giving it the viewport's mask. Nothing happens while camera, root or
    /// background are missing.
    void render(DrawActionBase* action);

protected:
    Viewport() = default;
    ~Viewport() override;

private:
    friend class Window;

    /// In pixels; 0 without a window.
    Real32 getWindowWidth() const;
    Real32 getWindowHeight() const;

    Real32 left = 0.0f;
    Real32 right = 0.0f;
    Real32 bottom = 0.0f;
    Real32 top = 0.0f;
    WindowPtr parent;
    CameraPtr camera;
    NodePtr root;
    BackgroundPtr background;
    UInt32 travMask = 0xffffffff;
};

} // namespace osg
