#include <OpenSG/OSGTextFaceFactory.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGTextTXFFace.h>

namespace osg {

TextFaceFactory& TextFaceFactory::the() {
    // Never destroyed: osgExit() may run when main() has returned.
    static auto* factory = new TextFaceFactory;
    return *factory;
}

TextTXFFace* TextFaceFactory::createTXFFace(const std::string& family, TextFace::Style style,
                                            const TextTXFParam& param) {
    for (const Entry& entry : cache)
        if (entry.family == family && entry.style == style && entry.param == param) return entry.face;
    TextTXFFace* face = TextTXFFace::load(family, style, param);
    if (!face) return nullptr;
    if (cache.empty())
        addSystemExitFunction([] {
            the().clearCache();
            return true;
        });
    face->addRef();
    cache.push_back({family, style, param, face});
    return face;
}

void TextFaceFactory::clearCache() {
    for (const Entry& entry : cache) entry.face->subRef();
    cache.clear();
}

} // namespace osg
