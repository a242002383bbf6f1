#pragma once

#include <OpenSG/OSGTextFace.h>
#include <OpenSG/OSGTextTXFParam.h>

#include <vector>

namespace osg {

class TextTXFFace;

/// Makes faces and keeps one reference to each until osgExit() or clearCache().
class OSG_SYSTEMLIB_DLLMAPPING TextFaceFactory {
public:
    static TextFaceFactory& the();

    /// The face for that request, from the cache or new; null when no font can be opened.
    TextTXFFace* createTXFFace(const std::string& family, TextFace::Style style = TextFace::STYLE_PLAIN,
                               const TextTXFParam& param = TextTXFParam());
    void clearCache();

private:
    TextFaceFactory() = default;

    struct Entry {
        std::string family;
        TextFace::Style style;
        TextTXFParam param;
        TextTXFFace* face;
    };
    std::vector<Entry> cache;
};

} // namespace osg
