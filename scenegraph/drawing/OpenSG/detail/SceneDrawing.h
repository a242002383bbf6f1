#pragma once

#include <OpenSG/detail/DrawList.h>
#include <OpenSG/detail/Lights.h>
#include <OpenSG/detail/StateApplication.h>

namespace osg {

/// Draws sorted lists into the current OpenGL context. Lives as long as what it keeps there from one to the next.
class SceneDrawing {
public:
    /// Leaves OpenGL's attributes as they were, its matrices changed.
    void draw(const DrawList& list, const Lights& lights, const Matrix& projection, const Matrix& worldToCamera,
              bool transparentWritesDepth);

private:
    StateApplication state;
    GeometryBuffers buffers;
};

} // namespace osg
