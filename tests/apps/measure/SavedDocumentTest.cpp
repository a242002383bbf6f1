#include <apps/measure/SavedDocument.h>

#include <apps/measure/Failure.h>
#include <support/TemporaryFolder.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <gtest/gtest.h>

namespace tesk::measure {

namespace {

class SavedDocumentTest : public testing::Test {
protected:
    static void SetUpTestSuite() { osg::osgInit(0, nullptr); }

    SavedDocument read(const std::string& text) const { return SavedDocument(folder.write("saved.xml", text)); }

    /// What the failure says after the file's name.
    std::string failure(const std::string& text) const {
        try {
            read(text);
            return "no failure";
        } catch (const Failure& failure) {
            return std::string(failure.what()).substr(path.size() + 2);
        }
    }

    const test::TemporaryFolder folder;
    const std::string path = folder.file("saved.xml");
};

std::string gap(const std::string& content) {
    return "<Measurements>\n<GapMeasurement node1='a'>" + content + "</GapMeasurement></Measurements>";
}

} // namespace

TEST_F(SavedDocumentTest, HoldsTheInputs) {
    const SavedDocument document =
        read("<?xml version='1.0' encoding='utf-8'?><!DOCTYPE measurements><Measurements>"
             "<LineObjectMeasurement node='Rühr&amp;werk' line='wire'><Samples><Sample/></Samples>"
             "<LinePoint x='1' y='-2' z='3e2'/></LineObjectMeasurement>" +
             gap("<Description>x</Description><Point2 x='1' y='2' z='3'/><SampleDistance value='0.5'/>").substr(15));
    ASSERT_EQ(document.getMeasurements().size(), 2u);
    const SavedMeasurement& line = document.getMeasurements()[0];
    EXPECT_EQ(line.kind, Command::lineObject);
    EXPECT_EQ(line.nodes, (std::vector<std::string>{"wire", "Rühr&werk"}));
    EXPECT_EQ(line.points[0][2], 300.0f);
    EXPECT_EQ(line.step, 10.0f);
    const SavedMeasurement& track = document.getMeasurements()[1];
    EXPECT_EQ(track.nodes, (std::vector<std::string>{"a", ""}));
    EXPECT_EQ(track.points[0][0], 0.0f);
    EXPECT_EQ(track.points[1][1], 2.0f);
    EXPECT_EQ(track.step, 0.5f);
}

TEST_F(SavedDocumentTest, PassesOverWhatTheFormatDoesNotHaveAndSaysSo) {
    const SavedDocument document =
        read("<Measurements>\n<Foo><GapMeasurement/></Foo>\n<PointPointMeasurement><Bar/></PointPointMeasurement>"
             "</Measurements>");
    EXPECT_EQ(document.getMeasurements().size(), 1u);
    const std::vector<std::string> notes{path + ": line 2: unknown element 'Foo' passed over",
                                         path + ": line 3: unknown element 'Bar' passed over"};
    EXPECT_EQ(document.getNotes(), notes);
}

TEST_F(SavedDocumentTest, SaysWhatIsWrong) {
    const std::string nothing = "no measurements in it";
    std::string deep;
    for (int i = 0; i < 100000; ++i) deep += "<Value>";
    const struct {
        std::string text;
        std::string cause;
    } rows[] = {
        {"", nothing},
        {"<Measurements/>", nothing},
        {"solid stl", nothing},
        {gap(deep), nothing},
        {gap("").substr(0, 40), nothing},
        {"<!DOCTYPE m [<!ENTITY e 'x'>]>" + gap("&e;"), nothing},
        {"<Jobs><PointPointMeasurement/></Jobs>", "line 1: 'Jobs' instead of 'Measurements'"},
        {gap("<Point1 x='1' y='2'/>"), "line 2: '' as z of 'Point1' is not a number up to 1e18"},
        {gap("<Point1 x='1' y='2e18' z='nan'/>"), "line 2: '2e18' as y of 'Point1'"},
        {gap("<SampleDistance value='0'/>"), "line 2: the sample distance is not positive"},
        {gap("<SampleDistance/>"), "line 2: '' as value of 'SampleDistance'"},
        {"<?xml version='1.0' encoding='latin1'?>" + gap(""), "its encoding is LATIN1"},
    };
    for (const auto& row : rows) {
        const std::string said = failure(row.text);
        EXPECT_EQ(said.substr(0, row.cause.size()), row.cause) << row.text.substr(0, 100);
        EXPECT_EQ(said.find('\n'), std::string::npos);
    }
}

} // namespace tesk::measure
