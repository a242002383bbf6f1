#pragma once

#include <OpenSG/OSGViewport.h>

namespace osg {

typedef RefPtr<WindowPtr> WindowRefPtr;

/// What viewports are drawn into. It holds no references to them.
///
/// A frame is render(), or its parts one by one: activate(), frameInit(), renderAllViewports(), swap(), frameExit().
class OSG_SYSTEMLIB_DLLMAPPING Window : public AttachmentContainer {
    OSG_ABSTRACT_CONTAINER(Window, AttachmentContainer)

public:
    enum : UInt32 {
        WidthFieldId = Inherited::NextFieldId,
        HeightFieldId,
        PortFieldId,
        /// After what genuine windows keep about OpenGL objects.
        NextFieldId = PortFieldId + 5
    };
    static constexpr BitVector WidthFieldMask = fieldMask(WidthFieldId);
    static constexpr BitVector HeightFieldMask = fieldMask(HeightFieldId);
    static constexpr BitVector PortFieldMask = fieldMask(PortFieldId);

    /// In pixels.
    UInt16 getWidth() const { return width; }
    UInt16 getHeight() const { return height; }
    void setSize(UInt16 newWidth, UInt16 newHeight);
    /// To be called when the window's size has changed.
    void resize(int newWidth, int newHeight);

    const MFViewportPtr& getPort() const { return ports; }
    const ViewportPtr& getPort(UInt32 index) const { return ports[index]; }
    /// Draws the viewport after those added before; null is ignored.
    void addPort(const ViewportPtr& port);
    void subPort(const ViewportPtr& port);
    void subPort(UInt32 index);

    /// To be called once with the window's OpenGL context current.
    virtual void init();
    /// Makes the window's OpenGL context current.
    virtual void activate() = 0;
    virtual void deactivate() = 0;
    /// Shows what was drawn.
    virtual void swap() = 0;

    void frameInit() {}
    /// Reports errors that drawing left behind in the OpenGL context, a line each on standard error.
    void frameExit();
    void renderAllViewports(DrawActionBase* action);
    void render(DrawActionBase* action);

protected:
    Window() = default;
    ~Window() override;

private:
    UInt16 width = 0;
    UInt16 height = 0;
    MFViewportPtr ports;
};

} // namespace osg
