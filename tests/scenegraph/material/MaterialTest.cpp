#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGLineChunk.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSimpleGeometry.h>
#include <OpenSG/OSGSimpleMaterial.h>
#include <OpenSG/OSGTextureChunk.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

template <class Container> osg::RefPtr<typename Container::Ptr> make() {
    osg::osgInit(0, nullptr);
    return osg::RefPtr<typename Container::Ptr>(Container::create());
}

bool isAlive(osg::UInt32 id) { return osg::FieldContainerFactory::the()->getContainer(id) != osg::NullFC; }

template <class Chunk, class Holder> typename Chunk::Ptr stateChunk(const Holder& material) {
    return Chunk::Ptr::dcast(material->getState()->getChunk(Chunk::getStaticClassId()));
}

TEST(ChunkMaterial, CountsWhatItHoldsAndFindsIt) {
    auto material = make<osg::ChunkMaterial>();
    const auto first = make<osg::LineChunk>(), second = make<osg::LineChunk>();
    EXPECT_TRUE(material->getState() == osg::NullFC);
    for (const osg::LineChunkPtr& chunk : {first.get(), first.get(), second.get()})
        EXPECT_TRUE(material->addChunk(chunk));
    EXPECT_TRUE(material->addChunk(osg::NullFC));
    EXPECT_EQ(first.get().getRefCount(), 3);
    osg::endEditCP(material);
    osg::endEditCP(material);
    EXPECT_EQ(first.get().getRefCount(), 3);
    EXPECT_EQ(second.get().getRefCount(), 3) << "test, material and state";
    EXPECT_TRUE(stateChunk<osg::LineChunk>(material) == second) << "the last of a class counts";

    EXPECT_EQ(material->find(second), 2);
    EXPECT_TRUE(material->find(osg::LineChunk::getClassType()) == first);
    EXPECT_TRUE(material->find(osg::StateChunk::getClassType()) == osg::NullFC) << "exact types only";
    EXPECT_FALSE(material->subChunk(second)) << "false means done";
    EXPECT_TRUE(material->subChunk(second));
    EXPECT_EQ(material->find(second), -1);
    EXPECT_EQ(second.get().getRefCount(), 2) << "the state keeps it until an edit ends";
    osg::endEditCP(material);
    EXPECT_EQ(second.get().getRefCount(), 1);
    EXPECT_TRUE(stateChunk<osg::LineChunk>(material) == first);
    material = osg::NullFC;
    EXPECT_EQ(first.get().getRefCount(), 1);
}

TEST(SimpleMaterial, RebuildsItsOwnChunksAtTheEndOfAnEdit) {
    const auto material = make<osg::SimpleMaterial>();
    material->setDiffuse(osg::Color3f(1, 0.5f, 0));
    material->setTransparency(0.25f);
    material->setLit(false);
    osg::endEditCP(material, osg::Material::SortKeyFieldMask);
    const osg::MaterialChunkPtr own = stateChunk<osg::MaterialChunk>(material);
    EXPECT_EQ(own->getDiffuse(), osg::Color4f(1, 0.5f, 0, 0.75f));
    EXPECT_EQ(own->getEmission(), osg::Color4f(0, 0, 0, 0.75f));
    EXPECT_FALSE(own->getLit());
    EXPECT_EQ(stateChunk<osg::BlendChunk>(material)->getDestFactor(), GLenum(GL_ONE_MINUS_SRC_ALPHA));
    EXPECT_TRUE(material->getChunks().empty());
    EXPECT_TRUE(material->find(osg::MaterialChunk::getClassType()) == osg::NullFC);

    material->setTransparency(0);
    EXPECT_EQ(own->getDiffuse()[3], 0.75f);
    osg::endEditCP(material);
    EXPECT_EQ(own->getDiffuse()[3], 1.0f) << "the same chunk";
    EXPECT_TRUE(stateChunk<osg::BlendChunk>(material) == osg::NullFC);

    const auto added = make<osg::MaterialChunk>();
    material->addChunk(added);
    osg::endEditCP(material);
    EXPECT_TRUE(stateChunk<osg::MaterialChunk>(material) == added);
}

TEST(Material, IsTransparentByItsTransparencyItsChunksOrItsMode) {
    const int detect = osg::Material::TransparencyAutoDetection, opaque = osg::Material::TransparencyForceOpaque;
    const struct {
        const char* name;
        float transparency, chunkAlpha;
        GLenum destFactor;
        int mode;
        bool simple, chunks;
    } rows[] = {
        {"opaque", 0, 1, GL_ZERO, detect, false, false},
        {"barely transparent", 2e-6f, 1, GL_ZERO, detect, true, false},
        {"within tolerance", 1e-6f, 1 - 5e-7f, GL_ZERO, detect, false, false},
        {"blending", 0, 1, GL_ONE, detect, true, true},
        {"chunk with alpha", 0, 0.5f, GL_ZERO, detect, true, true},
        {"forced opaque", 0, 0.5f, GL_ONE, opaque, false, false},
        {"forced in vain", 0.5f, 0.5f, GL_ONE, opaque, true, false},
        {"forced transparent", 0, 1, GL_ZERO, osg::Material::TransparencyForceTransparent, true, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const auto simple = make<osg::SimpleMaterial>();
        const auto material = make<osg::ChunkMaterial>();
        const auto blend = make<osg::BlendChunk>();
        const auto colors = make<osg::MaterialChunk>();
        simple->setTransparency(row.transparency);
        for (const osg::ChunkMaterialPtr& each : {osg::ChunkMaterialPtr(simple.get()), material.get()}) {
            each->addChunk(blend);
            each->addChunk(colors);
            each->setTransparencyMode(row.mode);
        }
        // Edits of shared chunks count at once.
        blend->setDestFactor(row.destFactor);
        colors->setDiffuse(osg::Color4f(1, 1, 1, row.chunkAlpha));
        EXPECT_EQ(simple->isTransparent(), row.simple);
        EXPECT_EQ(material->isTransparent(), row.chunks);
    }
}

TEST(MaterialDrawable, SharesItsMaterialAndLeavesVolumesAlone) {
    auto material = make<osg::SimpleMaterial>();
    const osg::UInt32 id = material.get().getFieldContainerId();
    osg::NodeRefPtr node(osg::makeBox(1, 1, 1, 1, 1, 1));
    const osg::GeometryPtr geometry = osg::GeometryPtr::dcast(node->getCore());
    EXPECT_TRUE(geometry->getMaterial() == osg::getDefaultMaterial());
    node->updateVolume();
    osg::beginEditCP(geometry, osg::Geometry::MaterialFieldMask);
    geometry->setMaterial(material);
    geometry->setMaterial(geometry->getMaterial());
    osg::endEditCP(geometry, osg::Geometry::MaterialFieldMask);
    EXPECT_TRUE(node->getVolume().isValid());
    osg::GeometryRefPtr copy(geometry->clone());
    EXPECT_EQ(material.get().getRefCount(), 3);
    node = osg::NullFC;
    material = osg::NullFC;
    EXPECT_TRUE(isAlive(id));
    copy = osg::NullFC;
    EXPECT_FALSE(isAlive(id));
}

TEST(Image, RefusesWhatItCannotHold) {
    const auto image = make<osg::Image>();
    EXPECT_TRUE(image->getData() == nullptr);
    const std::vector<osg::UInt8> bytes{1, 2, 3, 4, 5, 6, 7, 8};
    EXPECT_TRUE(image->set(osg::Image::OSG_LA_PF, 2, 2, 1, 1, 1, 0, bytes.data()));
    EXPECT_FALSE(image->set(GL_FLOAT, 2, 2));
    EXPECT_FALSE(image->set(osg::Image::OSG_RGBA_PF, 1 << 30, 1 << 30));
    EXPECT_EQ(image->getSize(), 8u);
    EXPECT_EQ(image->getData()[7], 8);
    EXPECT_TRUE(image->set(osg::Image::OSG_RGB_PF, 0, -1)) << "counts as 1 by 1";
    EXPECT_EQ(image->getSize(), 3u);
}

TEST(Material, OutlivesTheSceneGraphWithoutHarm) {
    const auto held = make<osg::SimpleMaterial>();
    const auto texture = make<osg::TextureChunk>();
    texture->setImage(make<osg::Image>());
    held->addChunk(texture);
    osg::endEditCP(held);
    const osg::UInt32 defaults[] = {osg::getDefaultMaterial().getFieldContainerId(),
                                    osg::getDefaultUnlitMaterial().getFieldContainerId()};
    const auto edited = make<osg::SimpleMaterial>();
    osg::osgExit();
    EXPECT_FALSE(isAlive(defaults[0]) || isAlive(defaults[1]));
    EXPECT_TRUE(osg::getDefaultMaterial() == osg::NullFC);
    osg::endEditCP(edited);
    EXPECT_TRUE(edited->getState() == osg::NullFC);
    osg::osgInit(0, nullptr);
    EXPECT_TRUE(osg::getDefaultMaterial() != osg::NullFC);
}

} // namespace
