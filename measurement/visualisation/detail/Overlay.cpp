#include <measurement/visualisation/detail/Overlay.h>

#include <measurement/visualisation/detail/Materials.h>
#include <measurement/visualisation/detail/Subtree.h>
#include <platform/cores/Screenboard.h>
#include <platform/font/FontManager.h>

#include <OpenSG/OSGGroup.h>

namespace tesk::measurement::detail {

void setLayer(const osg::MaterialPtr& material, OverlayLayer layer) {
    const osg::CPEditor edit(material, osg::Material::SortKeyFieldMask);
    material->setSortKey(static_cast<osg::Int32>(layer));
}

osg::ChunkMaterialPtr createTextMaterial(const osg::StateChunkPtr& depthChunk) {
    const osg::ChunkMaterialPtr material = font::FontManager::createTXFMaterial();
    addChunks(material, {depthChunk});
    setLayer(material, OverlayLayer::text);
    return material;
}

namespace {

void setPlace(const osg::ScreenboardPtr& board, const BoardPlace& place) {
    const osg::CPEditor edit(board);
    board->setExtent(place.extent);
    board->setAnchor(place.anchor);
    board->setOrigin(place.origin);
}

} // namespace

osg::NodePtr createBoard(const BoardPlace& place, std::initializer_list<osg::NodePtr> children) {
    osg::ScreenboardPtr board;
    const osg::NodePtr node = createParent<osg::Screenboard>({createParent<osg::Group>(children)}, &board);
    setPlace(board, place);
    return node;
}

osg::NodePtr getBoardChild(const osg::NodePtr& board, osg::UInt32 index) { return board->getChild(0)->getChild(index); }

} // namespace tesk::measurement::detail
