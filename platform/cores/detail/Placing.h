#pragma once

#include <OpenSG/OSGMatrix.h>
#include <OpenSG/OSGRenderAction.h>
#include <OpenSG/OSGTypedFunctors.h>
#include <OpenSG/OSGVector.h>

// What the boards share: how the scene is seen, and the way into and out of their subtrees.

namespace osg {

/// What an action's camera makes of a viewport's pixels.
struct View {
    /// From the world to the camera, and from there to the cube from -1 to 1.
    Matrix viewing;
    Matrix projection;
};

/// False without a camera.
bool getView(const DrawActionBase* action, View& view);

/// The three numbers of a column above the last row.
inline Vec3f getColumn(const Matrix& matrix, UInt32 index) {
    return Vec3f(matrix[index][0], matrix[index][1], matrix[index][2]);
}

bool isFinite(const Pnt3f& point);
bool isFinite(const Matrix& matrix);

/// The inverse of an affine matrix; units of any size do not matter. False, and the result untouched, when the matrix
/// flattens space so much that rounding would decide, or is not finite.
bool invertAffine(const Matrix& matrix, Matrix& result);

/// What registerEnterDefault() and its like take, for a method `Action::ResultE Core::method(Action*)`.
template <class Core, class Method> auto makeFunctor(Method method) {
    return osgTypedMethodFunctor2BaseCPtrRef<Action::ResultE, typename Core::Ptr, CNodePtr, Action*>(method);
}

/// Enters a subtree under the board's matrix, or none of it when there is nothing to be drawn.
template <class Board> Action::ResultE enterBoard(const Board& board, Action* action) {
    RenderAction& render = static_cast<RenderAction&>(*action);
    Matrix matrix;
    const bool isVisible = render.pushVisibility() && board.calcMatrix(&render, render.top_matrix(), matrix);
    // Rather than Action::Skip, after which no leaving follows.
    if (!isVisible) render.useNodeList();
    render.push_matrix(matrix);
    return Action::Continue;
}

inline Action::ResultE leaveBoard(Action* action) {
    RenderAction& render = static_cast<RenderAction&>(*action);
    render.pop_matrix();
    render.popVisibility();
    return Action::Continue;
}

} // namespace osg
