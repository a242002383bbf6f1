#include <OpenSG/OSGBackground.h>

#include <OpenSG/OSGGradientBackground.h>
#include <OpenSG/OSGPassiveBackground.h>
#include <OpenSG/OSGSolidBackground.h>

#include <GL/gl.h>

namespace osg {

OSG_ABSTRACT_CONTAINER_DEF(Background)
OSG_CONTAINER_DEF(PassiveBackground)
OSG_CONTAINER_DEF(SolidBackground)
OSG_CONTAINER_DEF(GradientBackground)

namespace {

void clearTo(const Color3f& color, Real32 alpha, Real32 depth) {
    glClearColor(color[0], color[1], color[2], alpha);
    glClearDepth(static_cast<GLdouble>(depth));
    glDepthMask(GL_TRUE);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

/// Makes colours alone count, in coordinates from 0 to 1 on the viewport; until the end of the object's life.
class FlatDrawing {
public:
    FlatDrawing() {
        glPushAttrib(GL_ENABLE_BIT | GL_TRANSFORM_BIT | GL_CURRENT_BIT);
        for (const GLenum feature : {GL_DEPTH_TEST, GL_LIGHTING, GL_TEXTURE_2D, GL_BLEND, GL_CULL_FACE})
            glDisable(feature);
        glMatrixMode(GL_PROJECTION);
        glPushMatrix();
        glLoadIdentity();
        glOrtho(0.0, 1.0, 0.0, 1.0, -1.0, 1.0);
        glMatrixMode(GL_MODELVIEW);
        glPushMatrix();
        glLoadIdentity();
    }
    ~FlatDrawing() {
        glMatrixMode(GL_MODELVIEW);
        glPopMatrix();
        glMatrixMode(GL_PROJECTION);
        glPopMatrix();
        glPopAttrib();
    }
    FlatDrawing(const FlatDrawing&) = delete;
    FlatDrawing& operator=(const FlatDrawing&) = delete;
};

void addRow(const Color3f& color, Real32 position) {
    glColor3f(color[0], color[1], color[2]);
    glVertex2f(0.0f, position);
    glVertex2f(1.0f, position);
}

} // namespace

void SolidBackground::clear(DrawActionBase*, Viewport*) { clearTo(color, alpha, depth); }

void GradientBackground::addLine(const Color3f& color, Real32 position) { lines.push_back({color, position}); }

void GradientBackground::clear(DrawActionBase*, Viewport*) {
    const Color3f black(0.0f, 0.0f, 0.0f);
    clearTo(lines.empty() ? black : lines.front().color, 1.0f, 1.0f);
    if (lines.size() < 2) return;
    const FlatDrawing drawing;
    glBegin(GL_QUAD_STRIP);
    if (lines.front().position > 0.0f) addRow(black, 0.0f);
    for (const ColorLine& line : lines) addRow(line.color, line.position);
    if (lines.back().position < 1.0f) addRow(black, 1.0f);
    glEnd();
}

} // namespace osg
