#pragma once

#include <OpenSG/OSGBaseTypes.h>
#include <OpenSG/OSGSystemDef.h>

#include <string>

namespace osg {

/// How a TextTXFFace is made.
class OSG_SYSTEMLIB_DLLMAPPING TextTXFParam {
public:
    TextTXFParam();

    /// Pixels of the rendered glyphs.
    UInt32 size = 46;
    /// Pixels between glyphs.
    UInt32 gap = 1;
    /// Pixels; 0: as fits best.
    UInt32 textureWidth = 0;

    /// The characters that the face has, as UTF-8; sorted, and each one once.
    void setCharacters(const std::string& utf8Characters);
    void setCharacters(const std::wstring& newCharacters);
    /// The printable ASCII characters unless set.
    const std::wstring& getCharacters() const { return characters; }

    bool operator==(const TextTXFParam& other) const;

private:
    std::wstring characters;
};

} // namespace osg
