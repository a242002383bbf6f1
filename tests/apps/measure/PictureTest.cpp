#include <apps/measure/Picture.h>

#include <apps/measure/Failure.h>
#include <apps/measure/PictureLayout.h>
#include <support/Scenes.h>
#include <support/TemporaryFolder.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <gtest/gtest.h>
#include <png.h>

#include <cmath>
#include <filesystem>

namespace tesk::measure {

namespace {

using test::named;
using test::quad;

struct Area {
    int left, top, right, bottom;
};

/// Squares of size 1 at the heights 0 and 1, and a line above them; pictures of 320x240.
class PictureTest : public testing::Test {
protected:
    static void SetUpTestSuite() { osg::osgInit(0, nullptr); }

    PictureTest() {
        options.picture.file = folder.file("picture.png");
        options.picture.size = {width, height};
        options.picture.background = osg::Color3f(0, 0, 0.2f);
        options.step = 0.1f;
    }

    void draw(Command command, const std::vector<PlacedPoint>& points, const std::vector<std::string>& nodes,
              const char* view) {
        options.command = command;
        options.points = points;
        options.nodes = nodes;
        options.picture.viewFrom = parseView(view).value();
        std::vector<SceneFile> files;
        if (command != Command::pointPoint) {
            const test::SceneNode line =
                test::lines({{{0.1f, 0.5f, 3}, {0.5f, 0.5f, 3.1f}}, {{0.5f, 0.5f, 3.1f}, {0.9f, 0.5f, 3}}});
            files = {{"a.obj", test::group({named(quad(0), "low"), named(quad(1), "high"), named(line, "wire")})}};
        }
        const SceneCatalogue catalogue(std::move(files));
        MeasurementSession session(options, nullptr, catalogue);
        session.measure();
        drawPicture(options.picture, session, catalogue);
        read();
    }

    void read() {
        png_image image{};
        image.version = PNG_IMAGE_VERSION;
        ASSERT_NE(png_image_begin_read_from_file(&image, options.picture.file.c_str()), 0);
        image.format = PNG_FORMAT_RGB;
        ASSERT_EQ(image.width, png_uint_32{width});
        pixels.resize(PNG_IMAGE_SIZE(image));
        ASSERT_NE(png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr), 0);
    }

    const png_byte* pixelAt(int column, int row) const { return &pixels[std::size_t(3 * (row * width + column))]; }

    /// Pixels of about the colour of labels, lines and frames.
    int countYellow(const Area& area) const {
        int count = 0;
        for (int row = area.top; row < area.bottom; ++row) {
            for (int column = area.left; column < area.right; ++column) {
                const png_byte* const pixel = pixelAt(column, row);
                count += pixel[0] > 150 && pixel[1] > 110 && pixel[2] < 130;
            }
        }
        return count;
    }

    static constexpr int width = 320, height = 240;
    /// The frame of the chart, and the box of the legend.
    const Area chart{30, 210, 210, 240}, legend{235, 0, width, 40};
    const test::TemporaryFolder folder;
    Options options;
    std::vector<png_byte> pixels;
};

} // namespace

TEST_F(PictureTest, ShowsADistanceWithArrowheadsAndALabelAtItsMiddle) {
    draw(Command::pointPoint, {{"", {-1, 0, 0}}, {"", {1, 0, 0}}}, {}, "front");
    // From margin to margin, each head a tenth of that.
    constexpr int start = 19, end = width - start, middle = height / 2;
    const auto heightAt = [&](int column) { return countYellow({column, 0, column + 1, height}); };
    for (const int column : {start + 24, end - 24}) EXPECT_GE(heightAt(column), 6) << column;
    for (const int column : {start + 50, end - 50}) EXPECT_LE(heightAt(column), 2) << column;
    EXPECT_LE(countYellow({0, 0, start - 3, height}) + countYellow({end + 3, 0, width, height}), 0);
    EXPECT_GT(countYellow({width / 2 - 4, middle - 18, width / 2 + 60, middle - 1}), 100);
    EXPECT_EQ(countYellow({width / 2 - 60, middle - 18, width / 2 - 8, middle - 4}), 0);
    for (const int column : {0, width - 1}) EXPECT_EQ(pixelAt(column, height - 1)[2], 51);
}

TEST_F(PictureTest, ShowsChartAndLegendInTheirCorners) {
    draw(Command::gap, {{"low", {0, 0.5f, 0}}, {"high", {1, 0.5f, 0}}}, {}, "front");
    EXPECT_GT(countYellow(chart), 200);
    EXPECT_EQ(countYellow(legend), 0);
    draw(Command::lineObject, {{"wire", {0.5f, 0.5f, 3}}}, {"high"}, "front");
    EXPECT_GT(countYellow(chart), 200);
    EXPECT_GT(countYellow(legend), 150);
    draw(Command::objectObject, {}, {"low", "high"}, "iso");
    EXPECT_EQ(countYellow(chart) + countYellow(legend), 0);
}

TEST_F(PictureTest, LetsMeasuredPointsBeSeenThroughWhatHidesThem) {
    draw(Command::objectObject, {}, {"low", "high"}, "top");
    // From above, the lower square is seen a little smaller than the upper one that covers it.
    const png_byte *const both = pixelAt(width / 2 + 20, height / 2 + 20), *const upper = pixelAt(width / 2 + 100,
                                                                                                  height / 2 + 20);
    EXPECT_GT(upper[2], 60);
    EXPECT_GT(std::abs(both[0] - upper[0]), 20);
}

TEST_F(PictureTest, IsNotWrittenWithoutTheMeasurementWantedInTheChart) {
    options.picture.active = "low to nowhere";
    EXPECT_THROW(draw(Command::objectObject, {}, {"low", "high"}, "iso"), Failure);
    EXPECT_FALSE(std::filesystem::exists(options.picture.file));
}

TEST(PictureLayout, ChoosesDigitsByTheSceneOrAsWanted) {
    const struct {
        std::optional<int> wanted;
        std::vector<float> values;
        float sceneSize;
        int decimals;
    } rows[] = {{{}, {0.087f}, 1.5f, 4}, {{}, {50}, 1300, 1},       {{}, {1}, 1e9f, 0},      {{}, {1}, 0, 1},
                {3, {0.0873f}, 1.5f, 4}, {3, {0, 12.3f}, 1300, 1},  {2, {40, 0.5f}, 100, 2}, {1, {250}, 1000, 0},
                {9, {1e-8f}, 1.5f, 7},   {{}, {1e-12f}, 1e-11f, 12}};
    for (const auto& row : rows)
        EXPECT_EQ(chooseDecimals(row.wanted, row.values, row.sceneSize), row.decimals) << row.sceneSize;
}

TEST(PictureLayout, KeepsLabelsInside) {
    PictureOptions options;
    options.viewFrom = osg::Vec3f(0, -1, 0);
    const std::vector<osg::Pnt3f> points = {{-1, 0, -1}, {1, 0, 1}};
    const std::vector<PictureLabel> labels = {{{1, 0, 1}, {-0.2f, -0.2f}, {8.2f, 2.9f}}};
    const float labelHeight = 0.03f, aspect = aspectOf(options.size);
    const auto view = fitWithLabels(points, rendering::boxOf(points), labels, labelHeight, options, {});
    const osg::Pnt2f place = view.project(points[1], aspect);
    EXPECT_LT(place[0] + 8.2f * labelHeight / aspect, 1.0f);
    EXPECT_LT(place[1] + 2.9f * labelHeight, 1.0f);
    EXPECT_GT(view.project(points[0], aspect)[1], 0.05f);
}

} // namespace tesk::measure
