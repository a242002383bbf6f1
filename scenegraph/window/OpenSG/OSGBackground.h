#pragma once

#include <OpenSG/OSGAttachmentContainer.h>
#include <OpenSG/OSGRefPtr.h>

namespace osg {

class Background;
class DrawActionBase;
class Viewport;
typedef FCPtr<AttachmentContainerPtr, Background> BackgroundPtr;
typedef RefPtr<BackgroundPtr> BackgroundRefPtr;

/// What a viewport shows where there is nothing.
class OSG_SYSTEMLIB_DLLMAPPING Background : public AttachmentContainer {
    OSG_ABSTRACT_CONTAINER(Background, AttachmentContainer)

public:
    /// Clears the viewport, which is active in the current OpenGL context.
    virtual void clear(DrawActionBase* action, Viewport* viewport) = 0;

protected:
    Background() = default;
};

} // namespace osg
