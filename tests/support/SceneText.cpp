#include <support/SceneText.h>

#include <platform/cores/Camboard.h>
#include <platform/cores/Screenboard.h>
#include <platform/font/FontManager.h>

#include <OpenSG/OSGBlendChunk.h>
#include <OpenSG/OSGDepthChunk.h>
#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGLineChunk.h>
#include <OpenSG/OSGMaterialChunk.h>
#include <OpenSG/OSGSimpleMaterial.h>
#include <OpenSG/OSGTransform.h>

#include <sstream>
#include <vector>

namespace tesk::test {

namespace {

template <class Values> std::string components(const Values& values, osg::UInt32 count) {
    std::ostringstream text;
    // A negative zero reads as zero.
    for (osg::UInt32 i = 0; i < count; ++i) text << (i ? " " : "(") << values[i] + 0.0f;
    return text.str() + ")";
}

const char* primitiveName(osg::UInt8 type) {
    static const char* const names[] = {"Points",   "Lines",  "LineLoop", "LineStrip", "Triangles",
                                        "TriStrip", "TriFan", "Quads",    "QuadStrip", "Polygon"};
    return type < 10 ? names[type] : "?";
}

class SceneWriter {
public:
    void write(const osg::NodePtr& node, int depth) {
        text << std::string(2 * depth, ' ') << node->getCore()->getType().getCName();
        writeCore(node->getCore());
        text << (node->getTravMask() == 0 ? ", hidden\n" : "\n");
        for (osg::UInt32 i = 0; i < node->getNChildren(); ++i) write(node->getChild(i), depth + 1);
    }

    std::string finish() {
        for (std::size_t i = 0; i < positions.size(); ++i) {
            text << "P" << i + 1 << ":";
            const auto property = osg::GeoPositionsPtr::dcast(positions[i]);
            for (osg::UInt32 k = 0; k < property->size(); ++k) text << " " << components(property->getValue(k), 3);
            text << "\n";
        }
        for (std::size_t i = 0; i < materials.size(); ++i) {
            text << "M" << i + 1 << ": " << materials[i]->getType().getCName();
            writeMaterial(osg::ChunkMaterialPtr::dcast(materials[i]));
            text << "\n";
        }
        return text.str();
    }

private:
    using Containers = std::vector<osg::FieldContainerPtr>;

    static std::size_t numberOf(Containers& known, const osg::FieldContainerPtr& container) {
        for (std::size_t i = 0; i < known.size(); ++i)
            if (known[i] == container) return i + 1;
        known.push_back(container);
        return known.size();
    }

    void writeCore(const osg::NodeCorePtr& core) {
        if (const auto geometry = osg::GeometryPtr::dcast(core)) writeGeometry(geometry);
        if (const auto board = osg::CamboardPtr::dcast(core))
            text << ": at " << components(board->getPosition(), 3) << " scale " << board->getScale() << " limits "
                 << board->getNearLimit() << " " << board->getFarLimit();
        if (const auto board = osg::ScreenboardPtr::dcast(core))
            text << ": " << components(board->getExtent(), 2) << " anchor " << components(board->getAnchor(), 2)
                 << " origin " << components(board->getOrigin(), 2);
        if (const auto transform = osg::TransformPtr::dcast(core))
            for (osg::UInt32 column = 0; column < 4; ++column)
                text << (column ? " " : ": ") << components(transform->getMatrix()[column], 3);
    }

    void writeGeometry(const osg::GeometryPtr& geometry) {
        const osg::GeoIndicesPtr indices = geometry->getIndices();
        const bool textured = geometry->getTexCoords() != osg::NullFC;
        osg::UInt32 vertex = 0;
        for (osg::UInt32 i = 0; geometry->getTypes() != osg::NullFC && i < geometry->getTypes()->size(); ++i) {
            const osg::UInt32 length = geometry->getLengths()->getValue(i);
            text << (i ? ", " : ": ") << primitiveName(geometry->getTypes()->getValue(i));
            if (indices == osg::NullFC || textured) text << " " << length;
            for (const osg::UInt32 end = vertex + length; vertex < end && indices != osg::NullFC && !textured; ++vertex)
                text << " " << indices->getValue(vertex);
        }
        if (textured)
            text << "; textured";
        else if (geometry->getPositions() != osg::NullFC)
            text << "; P" << numberOf(positions, geometry->getPositions());
        if (geometry->getColors() != osg::NullFC) writeColors(geometry->getColors());
        if (geometry->getMaterial() != osg::NullFC) text << "; M" << numberOf(materials, geometry->getMaterial());
    }

    void writeColors(const osg::GeoColorsPtr& colors) {
        for (osg::UInt32 i = 0, end = 0; i < colors->size(); i = end) {
            while (end < colors->size() && colors->getValue(end) == colors->getValue(i)) ++end;
            text << (i ? ", " : "; ") << end - i << " x " << components(colors->getValue(i), 3);
        }
    }

    void writeMaterial(const osg::ChunkMaterialPtr& material) {
        if (const auto simple = osg::SimpleMaterialPtr::dcast(material)) {
            text << " " << components(simple->getDiffuse(), 3) << (simple->getLit() ? "" : ", unlit");
            if (simple->getTransparency() != 0.0f) text << ", transparency " << simple->getTransparency();
            if (!(simple->getAmbient() == simple->getDiffuse())) text << ", ambient differs";
        }
        if (material->getSortKey() != 0) text << "; key " << material->getSortKey();
        for (osg::UInt32 i = 0; i < material->getChunks().size(); ++i) writeChunk(material->getChunks(i));
    }

    void writeChunk(const osg::StateChunkPtr& chunk) {
        if (const auto color = osg::MaterialChunkPtr::dcast(chunk))
            text << "; color " << components(color->getDiffuse(), 4) << (color->getLit() ? "" : ", unlit");
        else if (const auto line = osg::LineChunkPtr::dcast(chunk))
            text << "; lines " << line->getWidth() << (line->getSmooth() ? " smooth" : "");
        else if (const auto blend = osg::BlendChunkPtr::dcast(chunk))
            text << (blend->getSrcFactor() == GL_SRC_ALPHA && blend->getDestFactor() == GL_ONE_MINUS_SRC_ALPHA
                         ? "; blending"
                         : "; other blending");
        else if (const auto depth = osg::DepthChunkPtr::dcast(chunk))
            text << (!depth->getEnable() && depth->getReadOnly() ? "; over the scene" : "; other depth");
        else
            text << "; " << chunk->getType().getCName();
    }

    std::ostringstream text;
    Containers positions;
    Containers materials;
};

} // namespace

std::string sceneText(const osg::NodePtr& node) {
    SceneWriter writer;
    writer.write(node, 0);
    return writer.finish();
}

bool hasFont() {
    return font::FontManager::getInstance()->createTXFFace("Arial Unicode MS", osg::TextFace::STYLE_PLAIN, 64.0f);
}

} // namespace tesk::test
