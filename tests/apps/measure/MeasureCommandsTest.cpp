#include <apps/measure/MeasureCommands.h>

#include <apps/measure/Failure.h>
#include <apps/measure/MeasurementReport.h>
#include <measurement/model/MeasurementManager.h>
#include <support/Scenes.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <gtest/gtest.h>

namespace tesk::measure {

namespace {

using test::group;
using test::quad;
using test::transform;
using test::translated;

class MeasureCommands : public testing::Test {
protected:
    static void SetUpTestSuite() { osg::osgInit(0, nullptr); }

    static SceneFile file(const std::string& path, const test::SceneNode& content) {
        return {path, osg::RefPtr<osg::NodePtr>(group({content}).get())};
    }

    /// The report's value, or the failure's text.
    static std::string leastDistance(const test::SceneNode& content1, const test::SceneNode& content2) {
        Options options;
        options.command = Command::objectObject;
        const SceneCatalogue catalogue({file("a.stl", content1), file("b.stl", content2)});
        try {
            const MeasureCommand command(options, catalogue);
            measurement::MeasurementManager manager;
            return std::to_string(
                measurementReport(command.measure(manager), command.getInput()).numbers.front().number);
        } catch (const Failure& failure) {
            return failure.what();
        }
    }
};

test::SceneNode specks(float x) {
    const osg::Pnt3f point(x, 1, 1);
    return group({test::triangles({{point, point, point}}), transform(translated(x * 9, 0, 0), {quad(0)})});
}

} // namespace

TEST_F(MeasureCommands, ReportNoDistanceWhereThereIsNone) {
    const osg::Pnt3f corner(1, 2, 3);
    EXPECT_EQ(leastDistance(quad(0), quad(2)), "2.000000");
    EXPECT_EQ(leastDistance(quad(0), transform(translated(0.25f, 0, 0), {quad(0)})), "0.000000");
    EXPECT_EQ(leastDistance(quad(0), group({})), "'b' has no triangles");
    EXPECT_EQ(leastDistance(test::triangles({{corner, corner, {4, 5, 6}}}), quad(0)),
              "'a' has no triangles with an area");
    EXPECT_EQ(leastDistance(quad(3e18f), quad(0)), "'a' reaches beyond 1e18, too far for single precision");
    EXPECT_EQ(leastDistance(specks(1), specks(-1)),
              "no nearest points found between 'a' and 'b': triangles without an area are in the way");
}

} // namespace tesk::measure
