#include <OpenSG/OSGTextTXFParam.h>

#include <OpenSG/OSGTextFace.h>

#include <algorithm>

namespace osg {

TextTXFParam::TextTXFParam() {
    for (wchar_t character = L' '; character <= L'~'; ++character) characters.push_back(character);
}

void TextTXFParam::setCharacters(const std::string& utf8Characters) {
    std::wstring wide;
    TextFace::convertUTF8ToUnicode(utf8Characters, wide);
    setCharacters(wide);
}

void TextTXFParam::setCharacters(const std::wstring& newCharacters) {
    characters = newCharacters;
    std::sort(characters.begin(), characters.end());
    characters.erase(std::unique(characters.begin(), characters.end()), characters.end());
}

bool TextTXFParam::operator==(const TextTXFParam& other) const {
    return size == other.size && gap == other.gap && textureWidth == other.textureWidth &&
           characters == other.characters;
}

} // namespace osg
