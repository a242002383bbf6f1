#include <rendering/picture/PngEncoding.h>
#include <rendering/picture/ScenePicture.h>
#include <rendering/picture/ShadedGeometry.h>

#include <support/Scenes.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGSimpleMaterial.h>
#include <gtest/gtest.h>
#include <png.h>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace tesk::rendering {

namespace {

using Pixel = std::array<int, 3>;

constexpr int size = 40;
const osg::Color3f backgroundColor(1.0f, 0.0f, 0.2f);
const Pixel background = {255, 0, 51};

/// A square facing +y or -y from -1 to 1, cut along a diagonal and folded there, seen along y.
osg::NodePtr makeSheet(bool isFacingViewer, float fold) {
    test::Mesh sheet;
    sheet.positions = {{-1, 0, -1}, {1, fold, -1}, {1, 0, 1}, {-1, fold, 1}};
    sheet.indices = {0, 1, 2, 0, 2, 3};
    if (!isFacingViewer) std::reverse(sheet.indices.begin(), sheet.indices.end());
    const test::SceneNode node = test::geometry(sheet);
    const osg::GeometryPtr shaded = makeShadedTriangles(osg::GeometryPtr::dcast(node->getCore()));
    const osg::SimpleMaterialPtr material = osg::SimpleMaterial::create();
    {
        const osg::CPEditor editor(material);
        material->setDiffuse(osg::Color3f(0.5f, 0.5f, 0.5f));
    }
    const osg::CPEditor editor(shaded);
    shaded->setMaterial(material);
    return osg::makeNodeFor(shaded);
}

std::vector<std::uint8_t> draw(const osg::NodePtr& node, OffscreenContext& context) {
    const Box box{{-1, -1, -1}, {1, 1, 1}};
    const osg::RefPtr<osg::NodePtr> held(node);
    return drawScene(context, node, fitView(box.getCorners(), box, osg::Vec3f(0, -1, 0), 1.0f, {}), backgroundColor);
}

Pixel pixelAt(const std::vector<std::uint8_t>& pixels, int column, int row) {
    const std::size_t at = 3 * static_cast<std::size_t>(row * size + column);
    return {pixels[at], pixels[at + 1], pixels[at + 2]};
}

class ScenePicture : public testing::Test {
protected:
    static void SetUpTestSuite() { osg::osgInit(0, nullptr); }
};

} // namespace

TEST_F(ScenePicture, LightsBothSidesAlike) {
    OffscreenContext context(size, size), other(2 * size, size);
    const auto front = draw(makeSheet(true, 0.0f), context);
    EXPECT_EQ(pixelAt(front, 1, 1), background);
    EXPECT_EQ(pixelAt(front, size - 2, size - 2), background);
    EXPECT_NEAR(pixelAt(front, size / 2, size / 2)[0], 120, 8);
    // Another context in between, and what was drawn before is gone.
    draw(makeSheet(true, 0.0f), other);
    EXPECT_EQ(draw(makeSheet(false, 0.0f), context), front);
}

TEST_F(ScenePicture, ShadesGentleBendsSmoothlyAndKeepsEdges) {
    const struct {
        float fold;
        bool isSmooth;
    } rows[] = {{0.3f, true}, {1.2f, false}};
    for (const auto& [fold, isSmooth] : rows) {
        SCOPED_TRACE(fold);
        const test::SceneNode sheet(makeSheet(true, fold));
        const osg::GeometryPtr shaded = osg::GeometryPtr::dcast(sheet->getCore());
        // The first corner of both triangles is on the fold.
        const osg::Vec3f first = shaded->getNormals()->getValue(0), second = shaded->getNormals()->getValue(3);
        EXPECT_NEAR(first.length(), 1.0f, 1e-6f);
        EXPECT_EQ((first - second).length() < 1e-6f, isSmooth);
        EXPECT_GT((first - shaded->getNormals()->getValue(1)).length(), isSmooth ? 0.01f : -1.0f);
    }
}

TEST_F(ScenePicture, DrawsTransparentTrianglesFromTheFarthestOn) {
    const auto triangleAt = [](float y) { return measurement::Triangle{{0, y, 0}, {1, y, 0}, {0, y, 1}}; };
    const auto node = test::triangles({triangleAt(1), triangleAt(3), triangleAt(2)});
    const osg::GeometryPtr shaded = makeShadedTriangles(osg::GeometryPtr::dcast(node.get()->getCore()));
    sortBackToFront(shaded, osg::Pnt3f(0, -9, 0));
    for (osg::UInt32 i = 0; i < 3; ++i) EXPECT_EQ(shaded->getPositions()->getValue(3 * i)[1], 3.0f - float(i));
    EXPECT_EQ(makeLines(shaded), osg::NullFC);
}

TEST_F(ScenePicture, RefusesSizesThatCannotBe) {
    for (const auto& [width, height] : {std::pair(0, 5), std::pair(5, -1), std::pair(largestPictureSize + 1, 1)}) {
        try {
            const OffscreenContext context(width, height);
            ADD_FAILURE() << width;
        } catch (const std::runtime_error& failure) {
            EXPECT_NE(std::string(failure.what()).find("is not within 1x1 and 8192x8192"), std::string::npos);
        }
    }
}

TEST_F(ScenePicture, BecomesAPngThatReadsBack) {
    const std::vector<std::uint8_t> pixels = {255, 0, 0, 0, 255, 0, 0, 0, 255, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    const std::string bytes = encodePng(3, 2, pixels);
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    ASSERT_NE(png_image_begin_read_from_memory(&image, bytes.data(), bytes.size()), 0);
    EXPECT_EQ(image.width, 3u);
    image.format = PNG_FORMAT_RGB;
    std::vector<std::uint8_t> read(PNG_IMAGE_SIZE(image));
    ASSERT_NE(png_image_finish_read(&image, nullptr, read.data(), 0, nullptr), 0);
    EXPECT_EQ(read, pixels);
}

} // namespace tesk::rendering
