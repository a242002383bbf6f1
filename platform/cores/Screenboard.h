#pragma once

#include <platform/Export.h>
#include <platform/cores/detail/CoreShell.h>

#include <OpenSG/OSGAction.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGMatrix.h>
#include <OpenSG/OSGVector.h>

#define TESK_SCREENBOARD_FIELDS(FIELD)                                                                                 \
    FIELD(SFVec2f, Vec2f, Extent, extent, 30.0f, 21.0f)                                                                \
    FIELD(SFVec2f, Vec2f, Anchor, anchor, -1.0f, -1.0f)                                                                \
    FIELD(SFVec2f, Vec2f, Origin, origin, 0.0f, 0.0f)

namespace osg {

class DrawActionBase;
class Screenboard;
typedef FCPtr<GroupPtr, Screenboard> ScreenboardPtr;
typedef RefPtr<ScreenboardPtr> ScreenboardRefPtr;

/// Fixes its subtree to the screen: a board for charts and legends, whatever the camera and the ancestors do.
///
/// **Place.** In a viewport of w times h pixels one unit is
///     u = min(w / extent.x, h / extent.y)
/// pixels, so that at least `extent` units fit across the view. The local point `origin` lies at the viewport's point
/// `anchor`, where (-1, -1) is the lower left corner and (1, 1) the upper right one; the local point (x, y) lies
/// ((x, y) - origin) * u pixels from it, x to the right, y up. All follows the viewport when it is resized.
///
/// z only orders what is drawn: it is shrunk to a thousandth, and larger z is nearer to the viewer. The board stands
/// within the view's depth, not in front of the scene: what shall be seen at any rate is drawn without depth test.
///
/// Nothing is drawn without camera or viewport, in an empty viewport, with an extent that is not
/// positive or not finite, or below ancestors that flatten their subtree. `getToWorld()`, which knows no camera, has
/// the board's frame where the parent's is. Picking passes the board by.
///
/// The board is never culled, nor are its ancestors. In the embedded scene graph their volumes have the bounds that
/// they would have without it. OpenSG culls by bounds alone, which there reach over everything: fit views to the scene,
/// not to a node above a board.
class TESK_PLATFORM_EXPORT Screenboard : public Group {
    TESK_CORE(Screenboard, Group, TESK_SCREENBOARD_FIELDS)

public:
    /// Where a point of the window is on this board, up to rounding: the inverse of the placing above. The window's
    /// pixels are counted from its top left corner, y down. The origin when the action has no viewport or the board no
    /// place in it.
    Pnt2f calcPosition(const DrawActionBase* action, const Pnt2f& windowPosition) const;

    /// The board's frame in its parent's, which `toWorld` takes to the world. False, and the result untouched, when
    /// nothing can be drawn.
    bool calcMatrix(const DrawActionBase* action, const Matrix& toWorld, Matrix& result) const;

protected:
    void adjustVolume(Volume& volume) override;

private:
    static void initMethod();
    Action::ResultE renderEnter(Action* action);
    Action::ResultE renderLeave(Action* action);
    Action::ResultE intersectEnter(Action* action);
};

} // namespace osg
