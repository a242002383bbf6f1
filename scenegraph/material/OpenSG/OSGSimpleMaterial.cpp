#include <OpenSG/OSGSimpleMaterial.h>

namespace osg {

namespace {

Color4f withAlpha(const Color3f& color, Real32 alpha) { return Color4f(color[0], color[1], color[2], alpha); }

} // namespace

OSG_CONTAINER_DEF(SimpleMaterial)

SimpleMaterial::SimpleMaterial() : materialChunk(MaterialChunk::create()), blendChunk(BlendChunk::create()) {
    blendChunk->setSrcFactor(GL_SRC_ALPHA);
    blendChunk->setDestFactor(GL_ONE_MINUS_SRC_ALPHA);
}

bool SimpleMaterial::isTransparent() const { return transparency > Eps || Inherited::isTransparent(); }

void SimpleMaterial::addOwnChunks(const StatePtr& rebuilt) {
    const Real32 alpha = 1.0f - transparency;
    materialChunk->setDiffuse(withAlpha(diffuse, alpha));
    materialChunk->setAmbient(withAlpha(ambient, alpha));
    materialChunk->setSpecular(withAlpha(specular, alpha));
    materialChunk->setEmission(withAlpha(emission, alpha));
    materialChunk->setShininess(shininess);
    materialChunk->setLit(lit);
    materialChunk->setColorMaterial(colorMaterial);
    rebuilt->addChunk(materialChunk);
    if (isTransparent()) rebuilt->addChunk(blendChunk);
}

} // namespace osg
