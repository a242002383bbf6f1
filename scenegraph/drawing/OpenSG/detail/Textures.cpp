#include <OpenSG/detail/Textures.h>

#include <OpenSG/detail/OpenGL.h>

namespace osg {

namespace {

bool isDrawable(const ImagePtr& image) {
    if (image == NullFC || !image->getData()) return false;
    GLint largestSize = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largestSize);
    return image->getWidth() <= largestSize && image->getHeight() <= largestSize;
}

bool needsMipmaps(GLenum minFilter) { return minFilter != GL_NEAREST && minFilter != GL_LINEAR; }

void setParameter(GLenum name, GLenum value) { glTexParameteri(GL_TEXTURE_2D, name, static_cast<GLint>(value)); }

/// Gives the bound texture the chunk's image and parameters.
void upload(const TextureChunk& chunk) {
    const ImagePtr& image = chunk.getImage();
    setParameter(GL_TEXTURE_MIN_FILTER, chunk.getMinFilter());
    setParameter(GL_TEXTURE_MAG_FILTER, chunk.getMagFilter());
    setParameter(GL_TEXTURE_WRAP_S, chunk.getWrapS());
    setParameter(GL_TEXTURE_WRAP_T, chunk.getWrapT());
    setParameter(GL_GENERATE_MIPMAP, needsMipmaps(chunk.getMinFilter()) ? GL_TRUE : GL_FALSE);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    const GLenum format = image->getPixelFormat();
    glTexImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(format), image->getWidth(), image->getHeight(), 0, format,
                 GL_UNSIGNED_BYTE, image->getData());
}

} // namespace

Textures::Texture::~Texture() {
    if (name) glDeleteTextures(1, &name);
}

bool Textures::bind(const TextureChunk& chunk) {
    Texture& texture = cache.find(TextureChunkPtr(chunk));
    const bool isNew = texture.name == 0;
    if (isNew) glGenTextures(1, &texture.name);
    if (isNew || texture.revision != chunk.getRevision()) {
        texture.revision = chunk.getRevision();
        texture.isUsable = isDrawable(chunk.getImage());
        glBindTexture(GL_TEXTURE_2D, texture.name);
        if (texture.isUsable) upload(chunk);
    }
    if (texture.isUsable) glBindTexture(GL_TEXTURE_2D, texture.name);
    return texture.isUsable;
}

} // namespace osg
