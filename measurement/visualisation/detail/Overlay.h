#pragma once

#include <OpenSG/OSGChunkMaterial.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGVector.h>

#include <initializer_list>

/// What charts and legends that are fixed to the screen have in common.
namespace tesk::measurement::detail {

/// In which order things are drawn: after all of the scene, what comes later over what comes earlier.
enum class OverlayLayer : osg::Int32 { plate = 64100, line, frame, marker, sample, text };

void setLayer(const osg::MaterialPtr& material, OverlayLayer layer);

/// A text material with this chunk; texts have their colour per vertex.
osg::ChunkMaterialPtr createTextMaterial(const osg::StateChunkPtr& depthChunk);

/// Where a screen board lies, by the fields of osg::Screenboard.
struct BoardPlace {
    osg::Vec2f extent;
    osg::Vec2f anchor;
    osg::Vec2f origin;
};

/// A new node with an osg::Screenboard core, and in it a group of these children.
osg::NodePtr createBoard(const BoardPlace& place, std::initializer_list<osg::NodePtr> children);

/// A child of that group.
osg::NodePtr getBoardChild(const osg::NodePtr& board, osg::UInt32 index);

} // namespace tesk::measurement::detail
