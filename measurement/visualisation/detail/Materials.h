#pragma once

#include <OpenSG/OSGBlendChunk.h>
#include <OpenSG/OSGChunkMaterial.h>
#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGDepthChunk.h>
#include <OpenSG/OSGLineChunk.h>
#include <OpenSG/OSGMaterialChunk.h>
#include <OpenSG/OSGPointChunk.h>
#include <OpenSG/OSGPolygonChunk.h>
#include <OpenSG/OSGSimpleMaterial.h>

#include <vector>

/// What visualisations draw with. New objects have no references yet; every edit is ended.
namespace tesk::measurement::detail {

using StateChunks = std::vector<osg::StateChunkPtr>;

/// Lines so many pixels wide.
osg::LineChunkPtr createLineChunk(float width, bool smooth);
/// Points so many pixels wide.
osg::PointChunkPtr createPointChunk(float size, bool smooth);
/// Smoothed faces.
osg::PolygonChunkPtr createSmoothPolygonChunk();
/// Blending by the source's alpha.
osg::BlendChunkPtr createBlendChunk();
/// Neither tests nor writes depth: what carries it is drawn over the scene.
osg::DepthChunkPtr createOverlayDepthChunk();
/// An unlit colour.
osg::MaterialChunkPtr createColorChunk(const osg::Color3f& color, float alpha);
/// Unlit, all colours transparent black; colours of vertices, where there are any, show in their place.
osg::MaterialChunkPtr createInvisibleChunk();

osg::ChunkMaterialPtr createChunkMaterial(const StateChunks& chunks);
/// Unlit and opaque, ambient and diffuse in one colour, specular and emission black.
osg::SimpleMaterialPtr createColorMaterial(const osg::Color3f& color, const StateChunks& chunks);
void addChunks(const osg::ChunkMaterialPtr& material, const StateChunks& chunks);
/// The material chunk among the chunks of a material; null when there is none.
osg::MaterialChunkPtr findMaterialChunk(const osg::ChunkMaterialPtr& material);

/// Sets ambient and diffuse.
void setColor(const osg::SimpleMaterialPtr& material, const osg::Color3f& color);
/// Sets diffuse; null is ignored.
void setColor(const osg::MaterialChunkPtr& chunk, const osg::Color3f& color, float alpha);
void setWidth(const osg::LineChunkPtr& chunk, float width);

/// What has the material is drawn after everything whose materials have smaller keys.
void setSortKey(const osg::MaterialPtr& material, osg::Int32 key);

inline osg::Color4f withAlpha(const osg::Color3f& color, float alpha) {
    return osg::Color4f(color[0], color[1], color[2], alpha);
}

} // namespace tesk::measurement::detail
