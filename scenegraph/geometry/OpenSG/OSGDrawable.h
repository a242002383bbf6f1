#pragma once

#include <OpenSG/OSGNodeCore.h>

namespace osg {

class Drawable;
typedef FCPtr<NodeCorePtr, Drawable> DrawablePtr;

/// A core that has something to draw.
class OSG_SYSTEMLIB_DLLMAPPING Drawable : public NodeCore {
    OSG_ABSTRACT_CONTAINER(Drawable, NodeCore)

protected:
    Drawable() = default;
};

} // namespace osg
