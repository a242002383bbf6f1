#pragma once

#include <OpenSG/OSGDrawable.h>

namespace osg {

class MaterialDrawable;
typedef FCPtr<DrawablePtr, MaterialDrawable> MaterialDrawablePtr;

/// A drawable whose appearance a material gives.
class OSG_SYSTEMLIB_DLLMAPPING MaterialDrawable : public Drawable {
    OSG_ABSTRACT_CONTAINER(MaterialDrawable, Drawable)

public:
    enum : UInt32 { MaterialFieldId = Inherited::NextFieldId, NextFieldId };
    static constexpr BitVector MaterialFieldMask = fieldMask(MaterialFieldId);

protected:
    MaterialDrawable() = default;
};

} // namespace osg
