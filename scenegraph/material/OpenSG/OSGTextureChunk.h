#pragma once

#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGStateChunk.h>

namespace osg {

class TextureChunk;
typedef FCPtr<StateChunkPtr, TextureChunk> TextureChunkPtr;
typedef RefPtr<TextureChunkPtr> TextureChunkRefPtr;

/// A picture laid over faces by their texture coordinates; held by a reference.
///
/// Transparent it is only with a blend chunk beside it, whatever alpha the picture has.
class OSG_SYSTEMLIB_DLLMAPPING TextureChunk : public StateChunk {
    OSG_CONTAINER(TextureChunk, StateChunk)

public:
    /// Numbers left out are those of fields of no use here.
    enum : UInt32 {
        ImageFieldId = Inherited::NextFieldId,
        MinFilterFieldId = ImageFieldId + 5,
        MagFilterFieldId,
        WrapSFieldId,
        WrapTFieldId,
        EnvModeFieldId = WrapTFieldId + 2,
        NextFieldId = ImageFieldId + 53
    };
    OSG_FIELD(GLenum, MinFilter, minFilter, GL_LINEAR_MIPMAP_LINEAR);
    OSG_FIELD(GLenum, MagFilter, magFilter, GL_LINEAR);
    OSG_FIELD(GLenum, WrapS, wrapS, GL_REPEAT);
    OSG_FIELD(GLenum, WrapT, wrapT, GL_REPEAT);
    OSG_FIELD(GLenum, EnvMode, envMode, GL_REPLACE);

    static UInt32 getStaticClassId() { return getClassTypeId(); }

    static constexpr BitVector ImageFieldMask = fieldMask(ImageFieldId);
    const ImagePtr& getImage() const { return image; }
    void setImage(const ImagePtr& value);

    /// Counts the ends of edits, so that drawing can tell an outdated copy.
    UInt32 getRevision() const { return revision; }

    void changed(BitVector whichField, UInt32 origin) override;

protected:
    TextureChunk() = default;
    ~TextureChunk() override;

private:
    ImagePtr image;
    UInt32 revision = 0;
};

} // namespace osg
