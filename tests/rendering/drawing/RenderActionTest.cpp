#include "DrawnScene.h"

#include <OpenSG/OSGDepthChunk.h>
#include <OpenSG/OSGDirectionalLight.h>
#include <OpenSG/OSGDistanceLOD.h>
#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGLineChunk.h>
#include <OpenSG/OSGPointChunk.h>
#include <OpenSG/OSGSimpleGeometry.h>
#include <OpenSG/OSGSimpleMaterial.h>
#include <OpenSG/OSGTextureChunk.h>
#include <OpenSG/OSGTransform.h>
#include <support/Random.h>
#include <support/Scenes.h>

#include <gtest/gtest.h>

#include <cmath>

namespace tesk::test {

namespace {

struct Look {
    osg::Color3f color;
    float transparency = 0.0f;
    int sortKey = 0;
    std::vector<osg::StateChunkPtr> chunks{};
    bool lit = false;
};

const osg::Color3f pureRed(1, 0, 0), pureGreen(0, 1, 0), pureBlue(0, 0, 1), pureWhite(1, 1, 1);

osg::MaterialPtr material(const Look& look) {
    const osg::SimpleMaterialPtr made = osg::SimpleMaterial::create();
    const osg::CPEditor editor(made);
    made->setDiffuse(look.color);
    made->setTransparency(look.transparency);
    made->setSortKey(look.sortKey);
    made->setLit(look.lit);
    for (const osg::StateChunkPtr& chunk : look.chunks) made->addChunk(chunk);
    return made;
}

/// One primitive; its geometry is the node's core.
SceneNode primitive(GLenum type, const std::vector<osg::Pnt3f>& positions, const Look& look) {
    const osg::GeometryPtr geometry = osg::Geometry::create();
    geometry->setTypes(osg::GeoPTypesUI8::create());
    geometry->getTypes()->push_back(static_cast<osg::UInt8>(type));
    geometry->setPositions(osg::GeoPositions3f::create());
    for (const osg::Pnt3f& position : positions) geometry->getPositions()->push_back(position);
    geometry->setMaterial(material(look));
    osg::endEditCP(geometry);
    return SceneNode(osg::makeNodeFor(geometry));
}

osg::GeometryPtr geometryOf(const SceneNode& node) { return osg::GeometryPtr::dcast(node->getCore()); }

/// A square about the centre of the picture.
SceneNode square(float z, const Look& look, float half = 0.5f) {
    return primitive(GL_QUADS, {{-half, -half, z}, {half, -half, z}, {half, half, z}, {-half, half, z}}, look);
}

osg::DepthChunkPtr depth(bool test, bool readOnly) {
    const osg::DepthChunkPtr chunk = osg::DepthChunk::create();
    chunk->setEnable(test);
    chunk->setReadOnly(readOnly);
    return chunk;
}

} // namespace

TEST(RenderAction, DrawsBySortKeyThenOpaqueThenBackToFront) {
    const struct {
        const char* rule;
        SceneNodes squares;
        std::uint32_t center;
    } rows[] = {
        {"nearer hides", {square(0.5f, {pureRed}), square(0, {pureGreen})}, red},
        {"higher key comes later",
         {square(0.5f, {pureRed, 0, 2, {depth(false, true)}}), square(0, {pureGreen, 0, 3, {depth(false, true)}})},
         green},
        {"no depth test needs a key",
         {square(-0.5f, {pureRed, 0, 1, {depth(false, true)}}), square(0, {pureGreen})},
         red},
        {"what is read only does not hide",
         {square(0.5f, {pureRed, 0, 0, {depth(true, true)}}), square(0, {pureGreen, 0, 1})},
         green},
        {"transparent after opaque", {square(0.5f, {pureRed, 0.6f}), square(0, {pureGreen})}, 0x669900},
        {"back to front",
         {square(0.5f, {pureRed, 0.4f}), square(0, {pureBlue, 0.4f}), square(0.2f, {pureGreen, 0.4f})},
         0x993300},
        {"transparent hides nothing", {square(0.5f, {pureRed, 0.4f}), square(0, {pureGreen, 0, 1})}, green},
        {"a depth chunk left behind lets what follows hide",
         {square(-0.5f, {pureRed, 0.4f, 0, {depth(true, true)}}), square(0.5f, {pureBlue, 0.4f}),
          square(0, {pureGreen, 0, 1})},
         0x330099}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.rule);
        EXPECT_EQ(DrawnScene(group(row.squares)).colorAt(0, 0), row.center);
    }
}

TEST(RenderAction, DrawsWidthsSizesAndTextures) {
    const auto line = osg::LineChunk::create();
    line->setWidth(7);
    const auto point = osg::PointChunk::create();
    point->setSize(9);
    osg::ImagePtr image = osg::Image::create();
    const osg::UInt8 alpha[] = {0, 255, 255, 0};
    image->set(osg::Image::OSG_A_PF, 2, 2, 1, 1, 1, 0, alpha);
    const auto texture = osg::TextureChunk::create();
    texture->setImage(image);
    texture->setEnvMode(GL_MODULATE);
    texture->setMinFilter(GL_NEAREST);
    texture->setMagFilter(GL_NEAREST);
    const SceneNode textured = square(0, {pureWhite, 0.001f, 0, {texture}});
    geometryOf(textured)->setTexCoords(osg::GeoTexCoords2f::create());
    for (const osg::Vec2f& corner : {osg::Vec2f(0, 0), osg::Vec2f(1, 0), osg::Vec2f(1, 1), osg::Vec2f(0, 1)})
        geometryOf(textured)->getTexCoords()->push_back(corner);
    const DrawnScene drawn(group({primitive(GL_LINES, {{-1, 0.7f, 0}, {1, 0.7f, 0}}, {pureRed, 0, 0, {line}}),
                                  primitive(GL_POINTS, {{0, -0.7f, 0}}, {pureGreen, 0, 0, {point}}), textured}));
    EXPECT_EQ(drawn.count(red), 7 * DrawnScene::size);
    EXPECT_EQ(drawn.count(green), 9 * 9);
    EXPECT_EQ(drawn.count(white), 32 * 32 / 2);
    EXPECT_EQ(drawn.colorAt(0.2f, -0.2f), white);
}

TEST(RenderAction, LightsEverythingOrOnlyTheSubtree) {
    const auto light = osg::DirectionalLight::create();
    light->setDirection(1, 0, 0);
    const SceneNode lit(osg::makeNodeFor(light));
    const auto ball = [](float y) { return transform(translated(0, y, 0), {SceneNode(osg::makeSphere(3, 0.4f))}); };
    lit->addChild(ball(0.5f));
    DrawnScene drawn(group({lit, ball(-0.5f)}));
    // The default material, from the side that the light comes from and from the other.
    EXPECT_GE(drawn.colorAt(0.3f, 0.5f), 0x999966u);
    EXPECT_EQ(drawn.colorAt(-0.3f, 0.5f), black);
    EXPECT_EQ(drawn.colorAt(0.3f, -0.5f), drawn.colorAt(0.3f, 0.5f));
    drawn.getAction().setLocalLights(true);
    drawn.draw();
    EXPECT_EQ(drawn.colorAt(0.3f, -0.5f), black);
}

TEST(RenderAction, DrawsEveryKindOfPrimitiveWithAnyIndices) {
    using Points = std::vector<osg::Pnt3f>;
    const Points cycle{{-0.5f, -0.5f, 0}, {0.5f, -0.5f, 0}, {0.5f, 0.5f, 0}, {-0.5f, 0.5f, 0}};
    const Points zigzag{cycle[0], cycle[1], cycle[3], cycle[2]};
    const Points house{cycle[0], cycle[1], {0.5f, 0, 0}, {0, 0.5f, 0}, {-0.5f, 0, 0}};
    const Points six{cycle[0], cycle[1], cycle[2], cycle[0], cycle[2], cycle[3]};
    const struct {
        const char* name;
        GLenum type;
        Points points;
        int area;
    } rows[] = {{"triangles", GL_TRIANGLES, six, 1024},
                {"strip", GL_TRIANGLE_STRIP, zigzag, 1024},
                {"fan", GL_TRIANGLE_FAN, cycle, 1024},
                {"quads", GL_QUADS, cycle, 1024},
                {"quad strip", GL_QUAD_STRIP, zigzag, 1024},
                {"polygon", GL_POLYGON, house, 768},
                {"loop", GL_LINE_LOOP, cycle, 128},
                {"lines", GL_LINES, {{-0.5f, -0.5f, 0}, {-0.5f, 0.5f, 0}}, 32},
                {"points", GL_POINTS, {{0, 0.1f, 0}, {0.5f, 0.1f, 0}}, 2}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const SceneNode plain = primitive(row.type, row.points, {pureRed}),
                        indexed = primitive(row.type, row.points, {pureRed});
        // Colours have an index of their own, which finds the only element.
        const osg::GeometryPtr geometry = geometryOf(indexed);
        geometry->setColors(osg::GeoColors3ub::create());
        geometry->getColors()->push_back(pureGreen);
        geometry->setIndices(osg::GeoIndicesUI16::create());
        for (osg::UInt32 index = 0; index < row.points.size(); ++index)
            for (const osg::UInt32 entry : {0u, index}) geometry->getIndices()->push_back(entry);
        geometry->getIndexMapping().push_back(osg::Geometry::MapColor);
        geometry->getIndexMapping().push_back(osg::Geometry::MapPosition);
        const int area = DrawnScene(plain).count(red);
        EXPECT_NEAR(area, row.area, 1 + row.area / 30);
        EXPECT_EQ(DrawnScene(indexed).count(green), area);
    }
}

TEST(RenderAction, ChoosesChildrenAndLeavesOutWhatIsNotSeen) {
    const SceneNode levels = lod({square(0, {pureRed}), square(0, {pureGreen})});
    const auto level = osg::DistanceLODPtr::dcast(levels->getCore());
    level->getMFRange()->clear();
    level->getMFRange()->push_back(2);
    level->getMFRange()->push_back(4);
    DrawnScene drawn(group({levels, switchNode(1, {square(0.5f, {pureBlue}), square(0.5f, {pureWhite}, 0.2f)})}));
    EXPECT_EQ(drawn.colorAt(0.4f, 0), red);
    EXPECT_EQ(drawn.colorAt(0, 0), white);
    level->setCenter(osg::Pnt3f(0, 3, 0));
    drawn.draw();
    EXPECT_EQ(drawn.colorAt(0.4f, 0), green);

    // Moved behind the back of the volume.
    const SceneNode place = transform(translated(5, 0, 0), {square(0, {pureRed})});
    DrawnScene stale(group({place}));
    osg::TransformPtr::dcast(place->getCore())->setMatrix(osg::Matrix());
    stale.draw();
    EXPECT_EQ(stale.colorAt(0, 0), black);
    stale.getAction().setFrustumCulling(false);
    stale.draw();
    EXPECT_EQ(stale.colorAt(0, 0), red);
}

TEST(RenderAction, RefillsBuffersAndFreesThoseOfTheDead) {
    const SceneNode changing = square(0, {pureRed}, 0.2f), scene = group({changing, square(-0.5f, {pureBlue}, 0.1f)});
    DrawnScene drawn(scene);
    const int buffers = countBuffers();
    EXPECT_GT(buffers, 0);
    const osg::GeoPositionsPtr positions = geometryOf(changing)->getPositions();
    for (const float half : {0.3f, 0.4f, 0.5f}) {
        for (osg::UInt32 i = 0; i < 4; ++i)
            positions->setValue(osg::Pnt3f(i % 3 ? half : -half, i < 2 ? -half : half, 0), i);
        drawn.draw();
        EXPECT_EQ(drawn.colorAt(half - 0.05f, 0), black) << "nobody was told";
        osg::endEditCP(positions);
        drawn.draw();
        EXPECT_EQ(drawn.colorAt(half - 0.05f, 0), red);
    }
    EXPECT_EQ(countBuffers(), buffers);
    scene->subChild(1);
    drawn.draw();
    EXPECT_LT(countBuffers(), buffers);
    drawn.dropAction();
    EXPECT_EQ(countBuffers(), 0);
}

TEST(RenderAction, BearsAnyContentOfGeometries) {
    Random random(11);
    const float odd[] = {std::nanf(""), HUGE_VALF, 3e38f, -3e38f, 0};
    const osg::UInt32 strange[] = {0, 1, 100, 0x7fffffff, 0xffffffff};
    const auto number = [&] { return random.chance(0.7f) ? random.below(12) : strange[random.below(5)]; };
    const auto value = [&] { return random.chance(0.8f) ? random.real(0, 1) : odd[random.below(5)]; };
    const auto fill = [&](const auto& property, auto element) {
        for (osg::UInt32 count = random.below(30); count > 0; --count) property->push_back(element());
        return property;
    };
    const SceneNode scene = group({square(0, {pureGreen, 0, 1, {depth(false, true)}}, 0.2f)});
    DrawnScene drawn(scene);
    for (int run = 0; run < 150; ++run) {
        const SceneNode node = square(0, {pureRed, random.chance(0.5f) ? 0.5f : 0.0f, 0, {}, random.chance(0.5f)});
        const osg::GeometryPtr geometry = geometryOf(node);
        const auto position = [&] { return osg::Pnt3f(value(), value(), 0); };
        const auto color = [] { return pureRed; };
        geometry->setTypes(fill(osg::GeoPTypesUI8::create(), [&] { return random.below(12); }));
        if (random.chance(0.9f)) geometry->setPositions(fill(osg::GeoPositions4f::create(), position));
        if (random.chance(0.8f)) geometry->setLengths(fill(osg::GeoPLengthsUI32::create(), number));
        if (random.chance(0.5f)) geometry->setIndices(fill(osg::GeoIndicesUI32::create(), number));
        if (random.chance(0.5f)) geometry->setNormals(fill(osg::GeoNormals3f::create(), position));
        if (random.chance(0.5f)) geometry->setColors(fill(osg::GeoColors4ub::create(), color));
        for (osg::UInt32 slots = random.below(4); slots > 0; --slots)
            geometry->getIndexMapping().push_back(static_cast<osg::UInt16>(random.below(32)));
        scene->addChild(node);
        if (scene->getNChildren() > 5) scene->subChild(1 + random.below(4));
        drawn.draw();
        ASSERT_EQ(drawn.colorAt(0, 0), green) << "run " << run;
        ASSERT_EQ(drawn.colorAt(-0.9f, -0.9f) & 0xff, 0u) << "run " << run;
    }
}

} // namespace tesk::test
