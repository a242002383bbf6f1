#include <OpenSG/detail/StateApplication.h>

#include <OpenSG/OSGBlendChunk.h>
#include <OpenSG/OSGDepthChunk.h>
#include <OpenSG/OSGLineChunk.h>
#include <OpenSG/OSGMaterialChunk.h>
#include <OpenSG/OSGPointChunk.h>
#include <OpenSG/OSGPolygonChunk.h>
#include <OpenSG/detail/OpenGL.h>

#include <type_traits>

namespace osg {

namespace {

void setEnabled(GLenum capability, bool use) {
    if (use)
        glEnable(capability);
    else
        glDisable(capability);
}

/// A size that OpenGL takes. Written so that NaN becomes 1.
Real32 getPositive(Real32 size) { return size > 0.0f ? size : 1.0f; }

/// What the current colour is for a geometry without colours.
Color4f getColor(const MaterialChunk* chunk) { return chunk ? chunk->getDiffuse() : Color4f(1.0f, 1.0f, 1.0f, 1.0f); }

void applyMaterial(const MaterialChunk* chunk) {
    const bool isLit = chunk && chunk->getLit();
    const bool tracksColor = isLit && chunk->getColorMaterial() != GL_NONE;
    setEnabled(GL_LIGHTING, isLit);
    if (tracksColor) glColorMaterial(GL_FRONT_AND_BACK, chunk->getColorMaterial());
    // First, so that the colours that follow leave alone what the current colour stands for.
    setEnabled(GL_COLOR_MATERIAL, tracksColor);
    glColor4fv(getColor(chunk).getValuesRGBA());
    if (!isLit) return;
    glMaterialfv(GL_FRONT_AND_BACK, GL_DIFFUSE, chunk->getDiffuse().getValuesRGBA());
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT, chunk->getAmbient().getValuesRGBA());
    glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, chunk->getSpecular().getValuesRGBA());
    glMaterialfv(GL_FRONT_AND_BACK, GL_EMISSION, chunk->getEmission().getValuesRGBA());
    glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, osgMax(0.0f, osgMin(chunk->getShininess(), 128.0f)));
}

void applyLine(const LineChunk* chunk) {
    glLineWidth(chunk ? getPositive(chunk->getWidth()) : 1.0f);
    setEnabled(GL_LINE_SMOOTH, chunk && chunk->getSmooth());
}

void applyPoint(const PointChunk* chunk) {
    glPointSize(chunk ? getPositive(chunk->getSize()) : 1.0f);
    setEnabled(GL_POINT_SMOOTH, chunk && chunk->getSmooth());
}

void applyBlend(const BlendChunk* chunk) {
    const bool blends = chunk && (chunk->getSrcFactor() != GL_ONE || chunk->getDestFactor() != GL_ZERO);
    setEnabled(GL_BLEND, blends);
    if (blends) glBlendFunc(chunk->getSrcFactor(), chunk->getDestFactor());
}

void applyPolygon(const PolygonChunk* chunk) { setEnabled(GL_POLYGON_SMOOTH, chunk && chunk->getSmooth()); }

void applyDepth(const DepthChunk* chunk) {
    setEnabled(GL_DEPTH_TEST, !chunk || chunk->getEnable());
    // Deliberate: a chunk left behind switches writing on even among transparent geometries, which began without it.
    glDepthMask(chunk && chunk->getReadOnly() ? GL_FALSE : GL_TRUE);
}

} // namespace

void StateApplication::begin() {
    glUseProgram(0);
    for (const GLenum capability : {GL_ALPHA_TEST, GL_CULL_FACE, GL_FOG, GL_STENCIL_TEST, GL_LINE_STIPPLE,
                                    GL_POLYGON_STIPPLE, GL_COLOR_LOGIC_OP, GL_TEXTURE_1D, GL_TEXTURE_3D})
        glDisable(capability);
    glEnable(GL_NORMALIZE);
    glShadeModel(GL_SMOOTH);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glDepthFunc(GL_LEQUAL);
    end();
}

void StateApplication::end() {
    current = Chunks();
    currentState = nullptr;
    applyMaterial(nullptr);
    applyLine(nullptr);
    applyPoint(nullptr);
    applyBlend(nullptr);
    applyDepth(nullptr);
    applyPolygon(nullptr);
    applyTexture(nullptr);
    textures.dropDead();
}

StateApplication::Chunks StateApplication::getChunks(const State& state) {
    Chunks chunks;
    const auto take = [](const StateChunkPtr& chunk, auto& target) {
        target = static_cast<std::remove_reference_t<decltype(target)>>(chunk.getCPtr());
    };
    for (const StateChunkPtr& chunk : state.getChunks()) {
        const UInt32 id = chunk->getClassId();
        if (id == MaterialChunk::getStaticClassId()) take(chunk, chunks.material);
        if (id == LineChunk::getStaticClassId()) take(chunk, chunks.line);
        if (id == PointChunk::getStaticClassId()) take(chunk, chunks.point);
        if (id == BlendChunk::getStaticClassId()) take(chunk, chunks.blend);
        if (id == DepthChunk::getStaticClassId()) take(chunk, chunks.depth);
        if (id == PolygonChunk::getStaticClassId()) take(chunk, chunks.polygon);
        if (id == TextureChunk::getStaticClassId()) take(chunk, chunks.texture);
    }
    return chunks;
}

void StateApplication::apply(Material& material) {
    const State* const state = material.getState().getCPtr();
    if (state == currentState) return;
    currentState = state;
    change(state ? getChunks(*state) : Chunks());
}

void StateApplication::change(const Chunks& next) {
    if (next.material != current.material) applyMaterial(next.material);
    if (next.line != current.line) applyLine(next.line);
    if (next.point != current.point) applyPoint(next.point);
    if (next.blend != current.blend) applyBlend(next.blend);
    if (next.depth != current.depth) applyDepth(next.depth);
    if (next.polygon != current.polygon) applyPolygon(next.polygon);
    if (next.texture != current.texture) applyTexture(next.texture);
    current = next;
}

void StateApplication::applyTexture(const TextureChunk* chunk) {
    const bool isShown = chunk && textures.bind(*chunk);
    setEnabled(GL_TEXTURE_2D, isShown);
    if (isShown) glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, static_cast<GLint>(chunk->getEnvMode()));
}

void StateApplication::setDepthWriting(bool write) { glDepthMask(write ? GL_TRUE : GL_FALSE); }

void StateApplication::draw(const BufferedGeometry& geometry) {
    // Drawing with an array leaves the current value undefined, so it is set for each geometry.
    if (!geometry.hasColors()) glColor4fv(getColor(current.material).getValuesRGBA());
    if (!geometry.hasNormals()) glNormal3f(0.0f, 0.0f, 1.0f);
    if (!geometry.hasTexCoords()) glTexCoord2f(0.0f, 0.0f);
    geometry.draw();
}

} // namespace osg
