#pragma once

#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGGroup.h>

namespace osg {

class Light;
typedef FCPtr<GroupPtr, Light> LightPtr;
typedef RefPtr<LightPtr> LightRefPtr;

/// Lights the subtree of its node, from the coordinates of its beacon, a node that it holds no reference to.
class OSG_SYSTEMLIB_DLLMAPPING Light : public Group {
    OSG_ABSTRACT_CONTAINER(Light, Group)

public:
    enum : UInt32 {
        AmbientFieldId = Inherited::NextFieldId,
        DiffuseFieldId,
        SpecularFieldId,
        BeaconFieldId,
        OnFieldId,
        /// After what describes attenuation and shadows.
        NextFieldId = OnFieldId + 6
    };
    static constexpr BitVector AmbientFieldMask = fieldMask(AmbientFieldId);
    static constexpr BitVector DiffuseFieldMask = fieldMask(DiffuseFieldId);
    static constexpr BitVector SpecularFieldMask = fieldMask(SpecularFieldId);
    static constexpr BitVector BeaconFieldMask = fieldMask(BeaconFieldId);
    static constexpr BitVector OnFieldMask = fieldMask(OnFieldId);

    const Color4f& getAmbient() const { return ambient; }
    void setAmbient(const Color4f& color) { ambient = color; }
    void setAmbient(Real32 red, Real32 green, Real32 blue, Real32 alpha) { setAmbient({red, green, blue, alpha}); }
    const Color4f& getDiffuse() const { return diffuse; }
    void setDiffuse(const Color4f& color) { diffuse = color; }
    void setDiffuse(Real32 red, Real32 green, Real32 blue, Real32 alpha) { setDiffuse({red, green, blue, alpha}); }
    const Color4f& getSpecular() const { return specular; }
    void setSpecular(const Color4f& color) { specular = color; }
    void setSpecular(Real32 red, Real32 green, Real32 blue, Real32 alpha) { setSpecular({red, green, blue, alpha}); }
    const NodePtr& getBeacon() const { return beacon; }
    void setBeacon(const NodePtr& value) { beacon = value; }
    bool getOn() const { return on; }
    void setOn(bool value) { on = value; }

protected:
    Light() = default;

private:
    Color4f ambient{0.0f, 0.0f, 0.0f, 1.0f};
    Color4f diffuse{1.0f, 1.0f, 1.0f, 1.0f};
    Color4f specular{1.0f, 1.0f, 1.0f, 1.0f};
    NodePtr beacon;
    bool on = true;
};

} // namespace osg
