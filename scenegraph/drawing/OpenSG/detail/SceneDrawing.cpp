#include <OpenSG/detail/SceneDrawing.h>

#include <OpenSG/detail/OpenGL.h>

#include <limits>

namespace osg {

namespace {

/// Keeps OpenGL's attributes for who draws beside this.
class SavedAttributes {
public:
    SavedAttributes() {
        glPushAttrib(GL_ALL_ATTRIB_BITS);
        glPushClientAttrib(GL_CLIENT_ALL_ATTRIB_BITS);
    }
    ~SavedAttributes() {
        glPopClientAttrib();
        glPopAttrib();
    }
    SavedAttributes(const SavedAttributes&) = delete;
    SavedAttributes& operator=(const SavedAttributes&) = delete;
};

/// No light set and no placement has this number.
constexpr UInt32 nothingYet = std::numeric_limits<UInt32>::max() - 1;

void loadPlacement(const Matrix& placement, const Matrix& worldToCamera) {
    Matrix toCamera = worldToCamera;
    toCamera.mult(placement);
    glLoadMatrixf(toCamera.getValues());
}

} // namespace

void SceneDrawing::draw(const DrawList& list, const Lights& lights, const Matrix& projection,
                        const Matrix& worldToCamera, bool transparentWritesDepth) {
    const SavedAttributes saved;
    glMatrixMode(GL_PROJECTION);
    glLoadMatrixf(projection.getValues());
    glMatrixMode(GL_MODELVIEW);
    state.begin();
    bool writesDepth = true;
    UInt32 lightSet = nothingYet, placement = nothingYet;
    for (const DrawItem& item : list.getItems()) {
        const BufferedGeometry& geometry = buffers.get(GeometryPtr(*item.geometry));
        if (geometry.isEmpty()) continue;
        const bool shallWriteDepth = transparentWritesDepth || !item.transparent;
        if (shallWriteDepth != writesDepth) state.setDepthWriting(writesDepth = shallWriteDepth);
        state.apply(*item.material);
        if (item.lightSet != lightSet) {
            lights.apply(lightSet = item.lightSet, worldToCamera);
            placement = nothingYet;
        }
        if (item.placement != placement) loadPlacement(list.getPlacement(placement = item.placement), worldToCamera);
        state.draw(geometry);
    }
    state.end();
    buffers.dropDead();
}

} // namespace osg
