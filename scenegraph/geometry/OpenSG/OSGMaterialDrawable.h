#pragma once

#include <OpenSG/OSGDrawable.h>
#include <OpenSG/OSGMaterial.h>

namespace osg {

class MaterialDrawable;
typedef FCPtr<DrawablePtr, MaterialDrawable> MaterialDrawablePtr;

/// A drawable whose appearance a material gives.
class OSG_SYSTEMLIB_DLLMAPPING MaterialDrawable : public Drawable {
    OSG_ABSTRACT_CONTAINER(MaterialDrawable, Drawable)

public:
    enum : UInt32 { MaterialFieldId = Inherited::NextFieldId, NextFieldId };
    static constexpr BitVector MaterialFieldMask = fieldMask(MaterialFieldId);

    MaterialPtr& getMaterial() { return material; }
    const MaterialPtr& getMaterial() const { return material; }
    /// Holds the material by a reference. Null: drawn with the default material.
    void setMaterial(const MaterialPtr& value);

protected:
    MaterialDrawable() = default;
    ~MaterialDrawable() override;

private:
    MaterialPtr material;
};

} // namespace osg
