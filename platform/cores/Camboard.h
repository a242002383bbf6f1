#pragma once

#include <platform/Export.h>
#include <platform/cores/detail/CoreShell.h>

#include <OpenSG/OSGAction.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGMatrix.h>
#include <OpenSG/OSGVector.h>

#define TESK_CAMBOARD_FIELDS(FIELD)                                                                                    \
    FIELD(SFPnt3f, Pnt3f, Position, position, 0.0f, 0.0f, 0.0f)                                                        \
    FIELD(SFReal32, Real32, Scale, scale, 1.0f)                                                                        \
    FIELD(SFReal32, Real32, NearLimit, nearLimit, 1.0f)                                                                \
    FIELD(SFReal32, Real32, FarLimit, farLimit, 1.0f)

namespace osg {

class Camboard;
class DrawActionBase;
typedef FCPtr<GroupPtr, Camboard> CamboardPtr;
typedef RefPtr<CamboardPtr> CamboardRefPtr;

/// Turns its subtree to the camera: a board on which a label is written.
///
/// The subtree's origin lies at `position`, in the frame of the node's parent; its x axis runs to the right and its y
/// axis up on the screen, its z axis to the viewer, whatever rotation, scale, mirroring or shear the ancestors have.
///
/// **Size.** One unit of the subtree is drawn as
///     scale * min(farLimit, max(nearLimit, h))
/// units of the world, where h is the height of the view in world units at the depth of the board's position (the
/// depth of this one point counts for the whole board): 2 * distance * tan(fov / 2) with the distance along the view
/// direction in perspective, the vertical size for an orthographic camera; 0 behind the camera. So
/// - limits 1 and 1 (the default) give a fixed size: `scale` world units for each unit;
/// - limits 0 and a huge number give a steady size on screen: `scale` is the fraction of the view's height for a unit;
/// - anything else keeps the size on screen steady as long as h lies between the limits.
/// Scales of the ancestors do not count.
///
/// Nothing is drawn, and nothing else suffers, where there is no such placing: a position, scale or matrix that is not
/// finite, a size of 0, ancestors that flatten their subtree.
///
/// `getToWorld()`, which knows no camera, has only the position and the size for h = 1, without a turn. Picking passes
/// the board by.
///
/// The volume holds the subtree at every turn and every size between the limits, for the ancestors as they are when it
/// is computed; it is finite: half a side is at most 1e18, and a subtree with points that are not finite has none.
class TESK_PLATFORM_EXPORT Camboard : public Group {
    TESK_CORE(Camboard, Group, TESK_CAMBOARD_FIELDS)

public:
    /// From the subtree's frame to that of the node's parent, which `toWorld` takes to the world, for the action's
    /// camera. False, and the result untouched, when nothing can be drawn.
    bool calcMatrix(const DrawActionBase* action, const Matrix& toWorld, Matrix& result) const;

    void changed(BitVector whichField, UInt32 origin) override;

protected:
    void accumulateMatrix(Matrix& result) override;
    void adjustVolume(Volume& volume) override;

private:
    static void initMethod();
    /// World units for a unit of the subtree.
    Real32 calcSize(Real32 viewHeight) const;
    Action::ResultE renderEnter(Action* action);
    Action::ResultE renderLeave(Action* action);
    Action::ResultE intersectEnter(Action* action);
};

} // namespace osg
