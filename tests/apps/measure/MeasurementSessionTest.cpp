#include <apps/measure/MeasurementSession.h>

#include <apps/measure/Failure.h>
#include <apps/measure/JsonReport.h>
#include <support/Scenes.h>
#include <support/TemporaryFolder.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <gtest/gtest.h>

#include <cmath>

namespace tesk::measure {

namespace {

using test::group;
using test::named;
using test::quad;

/// A wavy line above two squares.
class MeasurementSessionTest : public testing::Test {
protected:
    static void SetUpTestSuite() { osg::osgInit(0, nullptr); }

    static std::vector<SceneFile> scene(bool hasLine) {
        std::vector<measurement::Segment> segments;
        const auto place = [](int i) {
            const float x = static_cast<float>(i) / 20.0f;
            return osg::Pnt3f(x, 0.5f, 3.0f + 0.1f * std::sin(7.0f * x));
        };
        for (int i = 0; i < 20; ++i) segments.push_back({place(i), place(i + 1)});
        test::SceneNodes nodes = {named(quad(0), "low"), named(quad(1), "high")};
        if (hasLine) nodes.push_back(named(test::lines(segments), "wave"));
        return {{"scene.obj", osg::RefPtr<osg::NodePtr>(group(nodes).get())}};
    }

    static Options gap(float step) {
        Options options;
        options.command = Command::gap;
        options.points = {{"low", {0.1f, 0, 0}}, {"high", {0.9f, 0, 0}}};
        options.step = step;
        return options;
    }

    /// The result of a session, measured and saved, or the failure's text.
    std::string runSession(const Options& options, bool hasLine = true) const {
        std::optional<SavedDocument> document;
        try {
            if (!options.document.empty()) document.emplace(options.document);
            const SceneCatalogue catalogue(scene(hasLine));
            MeasurementSession session(options, document ? &*document : nullptr, catalogue);
            session.measure();
            session.saveMeasurements();
            return jsonReports(session.getReports());
        } catch (const Failure& failure) {
            return failure.what();
        }
    }

    const test::TemporaryFolder folder;
    const std::string path = folder.file("saved.xml");
};

} // namespace

TEST_F(MeasurementSessionTest, LoadsTheNumbersThatItSaved) {
    Options options = gap(0.0625f);
    options.saveFile = path;
    runSession(options);
    options.document = path;
    options.command = Command::lineObject;
    options.points = {{"wave", {0.5f, 0.5f, 3}}};
    options.nodes = {"high"};
    const std::string saved = runSession(options);
    EXPECT_NE(saved.find("\"name\": \"wave to high\",\n      \"value\": 2.0"), std::string::npos) << saved;
    options.command = Command::load;
    EXPECT_EQ(runSession(options), saved);

    // Without its node a measurement is not saved, so that it is not lost.
    EXPECT_NE(runSession(options, false).find("\"problem\": \"the scene lacks 'wave'\""), std::string::npos);
    EXPECT_EQ(runSession(options), saved);
}

TEST_F(MeasurementSessionTest, RefusesTooManySamples) {
    EXPECT_NE(runSession(gap(1e-8f)).find(" samples would be needed, but no more than 10000000"), std::string::npos);
    Options options = gap(4e-7f);
    options.saveFile = path;
    EXPECT_NE(runSession(options).find("a document holds no more"), std::string::npos);
    options.command = Command::lineObject;
    options.points = {{"wave", {0, 0, 3}}};
    options.nodes = {"low"};
    options.step = 1e-8f;
    EXPECT_NE(runSession(options).find("but no more than 10000000 are taken"), std::string::npos);
}

TEST_F(MeasurementSessionTest, CountsTheSamplesOfAllMeasurementsTogether) {
    folder.write("saved.xml",
                 "<Measurements><GapMeasurement node1='low' node2='high'>"
                 "<Point2 x='0.6' y='0' z='0'/><SampleDistance value='1e-7'/></GapMeasurement></Measurements>");
    Options options = gap(1e-7f);
    options.document = path;
    EXPECT_EQ(runSession(options).substr(0, 12), "14000001 sam");
}

} // namespace tesk::measure
