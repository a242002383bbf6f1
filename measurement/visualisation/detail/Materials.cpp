#include <measurement/visualisation/detail/Materials.h>

#include <OpenSG/OSGGL.h>

namespace tesk::measurement::detail {

osg::LineChunkPtr createLineChunk(float width, bool smooth) {
    const osg::LineChunkPtr chunk = osg::LineChunk::create();
    const osg::CPEditor edit(chunk);
    chunk->setWidth(width);
    chunk->setSmooth(smooth);
    return chunk;
}

osg::PointChunkPtr createPointChunk(float size, bool smooth) {
    const osg::PointChunkPtr chunk = osg::PointChunk::create();
    const osg::CPEditor edit(chunk);
    chunk->setSize(size);
    chunk->setSmooth(smooth);
    return chunk;
}

osg::PolygonChunkPtr createSmoothPolygonChunk() {
    const osg::PolygonChunkPtr chunk = osg::PolygonChunk::create();
    const osg::CPEditor edit(chunk);
    chunk->setSmooth(true);
    return chunk;
}

osg::BlendChunkPtr createBlendChunk() {
    const osg::BlendChunkPtr chunk = osg::BlendChunk::create();
    const osg::CPEditor edit(chunk);
    chunk->setSrcFactor(GL_SRC_ALPHA);
    chunk->setDestFactor(GL_ONE_MINUS_SRC_ALPHA);
    return chunk;
}

osg::DepthChunkPtr createOverlayDepthChunk() {
    const osg::DepthChunkPtr chunk = osg::DepthChunk::create();
    const osg::CPEditor edit(chunk);
    chunk->setEnable(false);
    chunk->setReadOnly(true);
    return chunk;
}

osg::MaterialChunkPtr createColorChunk(const osg::Color3f& color, float alpha) {
    const osg::MaterialChunkPtr chunk = osg::MaterialChunk::create();
    const osg::CPEditor edit(chunk);
    chunk->setDiffuse(withAlpha(color, alpha));
    chunk->setLit(false);
    return chunk;
}

osg::MaterialChunkPtr createInvisibleChunk() {
    const osg::Color4f transparentBlack(0.0f, 0.0f, 0.0f, 0.0f);
    const osg::MaterialChunkPtr chunk = osg::MaterialChunk::create();
    const osg::CPEditor edit(chunk);
    chunk->setAmbient(transparentBlack);
    chunk->setDiffuse(transparentBlack);
    chunk->setSpecular(transparentBlack);
    chunk->setEmission(transparentBlack);
    chunk->setLit(false);
    chunk->setColorMaterial(GL_AMBIENT_AND_DIFFUSE);
    return chunk;
}

osg::ChunkMaterialPtr createChunkMaterial(const StateChunks& chunks) {
    const osg::ChunkMaterialPtr material = osg::ChunkMaterial::create();
    addChunks(material, chunks);
    return material;
}

osg::SimpleMaterialPtr createColorMaterial(const osg::Color3f& color, const StateChunks& chunks) {
    const osg::Color3f black(0.0f, 0.0f, 0.0f);
    const osg::SimpleMaterialPtr material = osg::SimpleMaterial::create();
    const osg::CPEditor edit(material);
    material->setAmbient(color);
    material->setDiffuse(color);
    material->setSpecular(black);
    material->setEmission(black);
    material->setShininess(10.0f);
    material->setTransparency(0.0f);
    material->setLit(false);
    for (const osg::StateChunkPtr& chunk : chunks) material->addChunk(chunk);
    return material;
}

void addChunks(const osg::ChunkMaterialPtr& material, const StateChunks& chunks) {
    const osg::CPEditor edit(material, osg::ChunkMaterial::ChunksFieldMask);
    for (const osg::StateChunkPtr& chunk : chunks) material->addChunk(chunk);
}

osg::MaterialChunkPtr findMaterialChunk(const osg::ChunkMaterialPtr& material) {
    return osg::MaterialChunkPtr::dcast(material->find(osg::MaterialChunk::getClassType()));
}

void setColor(const osg::SimpleMaterialPtr& material, const osg::Color3f& color) {
    const osg::CPEditor edit(material, osg::SimpleMaterial::AmbientFieldMask | osg::SimpleMaterial::DiffuseFieldMask);
    material->setAmbient(color);
    material->setDiffuse(color);
}

void setColor(const osg::MaterialChunkPtr& chunk, const osg::Color3f& color, float alpha) {
    if (chunk == osg::NullFC) return;
    const osg::CPEditor edit(chunk, osg::MaterialChunk::DiffuseFieldMask);
    chunk->setDiffuse(withAlpha(color, alpha));
}

void setWidth(const osg::LineChunkPtr& chunk, float width) {
    const osg::CPEditor edit(chunk, osg::LineChunk::WidthFieldMask);
    chunk->setWidth(width);
}

void setSortKey(const osg::MaterialPtr& material, osg::Int32 key) {
    const osg::CPEditor edit(material, osg::Material::SortKeyFieldMask);
    material->setSortKey(key);
}

} // namespace tesk::measurement::detail
