#include <OpenSG/OSGTextureChunk.h>

namespace osg {

OSG_CONTAINER_DEF(TextureChunk)

TextureChunk::~TextureChunk() { subRefCP(image); }

void TextureChunk::setImage(const ImagePtr& value) { setRefdCP(image, value); }

void TextureChunk::changed(BitVector whichField, UInt32 origin) {
    ++revision;
    Inherited::changed(whichField, origin);
}

} // namespace osg
