#pragma once

#include <OpenSG/OSGMatrix.h>
#include <OpenSG/OSGNodePtr.h>

namespace osg {

class Camera;
class Line;
class Viewport;
typedef FCPtr<AttachmentContainerPtr, Camera> CameraPtr;
typedef RefPtr<CameraPtr> CameraRefPtr;

/// How the world comes onto a viewport.
///
/// The camera looks along -z of its beacon, a node that it does not hold a reference to; y is up. Near and far are the
/// positive distances of the planes between which something is seen, both 0 until set. Sizes are those of the viewport
/// in pixels.
class OSG_SYSTEMLIB_DLLMAPPING Camera : public AttachmentContainer {
    OSG_ABSTRACT_CONTAINER(Camera, AttachmentContainer)

public:
    enum : UInt32 { BeaconFieldId = Inherited::NextFieldId, NearFieldId, FarFieldId, NextFieldId };
    static constexpr BitVector BeaconFieldMask = fieldMask(BeaconFieldId);
    static constexpr BitVector NearFieldMask = fieldMask(NearFieldId);
    static constexpr BitVector FarFieldMask = fieldMask(FarFieldId);

    const NodePtr& getBeacon() const { return beacon; }
    void setBeacon(const NodePtr& value) { beacon = value; }
    Real32 getNear() const { return nearDistance; }
    void setNear(Real32 value) { nearDistance = value; }
    Real32 getFar() const { return farDistance; }
    void setFar(Real32 value) { farDistance = value; }

    /// From camera coordinates to the cube from -1 to 1 in each axis.
    virtual void getProjection(Matrix& result, UInt32 width, UInt32 height) = 0;
    /// From world to camera coordinates; the identity without a beacon.
    virtual void getViewing(Matrix& result, UInt32 width, UInt32 height);
    /// From world coordinates to the cube, with multFullMatrixPnt().
    void getWorldToScreen(Matrix& result, const Viewport& viewport);

    /// What lies behind a pixel of the window: in world coordinates, from the near plane on, normalised. Pixels count
    /// from the window's top left corner. False, and the line unchanged, for a viewport without window or pixels.
    bool calcViewRay(Line& line, Int32 x, Int32 y, const Viewport& viewport);

protected:
    Camera() = default;

private:
    NodePtr beacon;
    Real32 nearDistance = 0.0f;
    Real32 farDistance = 0.0f;
};

} // namespace osg
