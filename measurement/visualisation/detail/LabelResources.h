#pragma once

#include <measurement/visualisation/detail/GeometryBuffers.h>
#include <measurement/visualisation/detail/LabelFont.h>
#include <measurement/visualisation/detail/Materials.h>

#include <optional>

namespace tesk::measurement::detail {

/// What all subtrees of a visualisation with labels share.
struct LabelResources {
    LabelFont font;

    osg::LineChunkRefPtr lineChunk;
    osg::SimpleMaterialRefPtr lineMaterial;
    osg::SimpleMaterialRefPtr arrowheadMaterial;
    osg::ChunkMaterialRefPtr textMaterial;
    osg::ChunkMaterialRefPtr backMaterial;
    osg::ChunkMaterialRefPtr outlineMaterial;
    osg::SimpleMaterialRefPtr borderMaterial;

    std::optional<GeometryBuffers> lineBuffers;
    std::optional<GeometryBuffers> arrowheadBuffers;
    std::optional<GeometryBuffers> backBuffers;
    std::optional<GeometryBuffers> outlineBuffers;
    std::optional<GeometryBuffers> borderBuffers;
};

} // namespace tesk::measurement::detail
