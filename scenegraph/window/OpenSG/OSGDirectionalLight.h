#pragma once

#include <OpenSG/OSGLight.h>
#include <OpenSG/OSGVector.h>

namespace osg {

class DirectionalLight;
typedef FCPtr<LightPtr, DirectionalLight> DirectionalLightPtr;
typedef RefPtr<DirectionalLightPtr> DirectionalLightRefPtr;

/// A light from far away. The direction points to it, in the beacon's coordinates.
class OSG_SYSTEMLIB_DLLMAPPING DirectionalLight : public Light {
    OSG_CONTAINER(DirectionalLight, Light)

public:
    enum : UInt32 { DirectionFieldId = Inherited::NextFieldId, NextFieldId };
    static constexpr BitVector DirectionFieldMask = fieldMask(DirectionFieldId);

    const Vec3f& getDirection() const { return direction; }
    void setDirection(const Vec3f& value) { direction = value; }
    void setDirection(Real32 x, Real32 y, Real32 z) { direction.setValues(x, y, z); }

protected:
    DirectionalLight() = default;

private:
    Vec3f direction{0.0f, 0.0f, 1.0f};
};

} // namespace osg
