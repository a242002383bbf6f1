#include <apps/measure/Options.h>

#include <apps/measure/Failure.h>

#include <gtest/gtest.h>

#include <sstream>

namespace tesk::measure {

namespace {

ParsedOptions parseWords(const std::string& commandLine) {
    std::istringstream words(commandLine);
    return parseOptions({std::istream_iterator<std::string>(words), std::istream_iterator<std::string>()});
}

} // namespace

TEST(Options, KeepTheOrderOfRolesNotOfArguments) {
    const auto circle =
        parseWords("circle a.stl --point3 0,0,3 --point1 nut@-1,0,0 --point2 0,-.2,0 --expect >1").options;
    ASSERT_TRUE(circle);
    ASSERT_EQ(circle->points.size(), 3u);
    EXPECT_EQ(circle->points[0].node, "nut");
    EXPECT_EQ(circle->points[0].point[0], -1.0f);
    EXPECT_EQ(circle->points[1].point[1], -0.2f);
    EXPECT_EQ(circle->points[2].point[2], 3.0f);

    const auto pair = parseWords("object-object --node2 two list --json --node1 -one circle --precision 3").options;
    ASSERT_TRUE(pair);
    EXPECT_EQ(pair->nodes, (std::vector<std::string>{"-one", "two"}));
    EXPECT_EQ(pair->scenes, (std::vector<std::string>{"list", "circle"}));
    EXPECT_TRUE(pair->json);
    EXPECT_EQ(pair->precision, 3);
}

TEST(Options, ReadHowAPictureIsToLook) {
    const auto parsed =
        parseWords("load a.xml --picture a.png --size 40x30 --view top --background #ff0080 --active x --precision 3");
    ASSERT_TRUE(parsed.options) << parsed.text;
    const PictureOptions& picture = parsed.options->picture;
    EXPECT_EQ(picture.size.width, 40);
    EXPECT_EQ(picture.size.height, 30);
    EXPECT_EQ(picture.viewFrom, osg::Vec3f(0, 0, 1));
    EXPECT_EQ(picture.background, osg::Color3f(1, 0, 128.0f / 255.0f));
    EXPECT_EQ(picture.digits, 3);
    EXPECT_EQ(parseView("1,-2,.5"), osg::Vec3f(1, -2, 0.5f));
    EXPECT_EQ(parseColor("0,127.5,255"), osg::Color3f(0, 0.5f, 1));
    for (const char* text :
         {"", "x", "4x", "x4", "0x4", "4x0", "-4x4", "+4x4", "4x4x4", "4 x4", "4x8193", "4x99999999999"})
        EXPECT_FALSE(parsePictureSize(text)) << text;
    for (const char* text : {"", "Top", "0,0,0", "1,2", "nan,0,1"}) EXPECT_FALSE(parseView(text)) << text;
    for (const char* text : {"", "#", "#12345", "#1234567", "#-10000", "#gg0000", "1,2", "256,0,0", "-1,0,0"})
        EXPECT_FALSE(parseColor(text)) << text;
}

TEST(Options, RefuseWhatCannotBeCarriedOutInOneLine) {
    const struct {
        const char* commandLine;
        const char* cause;
    } rows[] = {
        {"", "a command is needed"},
        {"lst a.stl", "unknown command 'lst'"},
        {"list", "SCENE"},
        {"list a.stl --fast", "--fast"},
        {"list a.stl --precision 10", "--precision"},
        {"point-point --point1 1,2,3", "--point2"},
        {"point-point --point1 1,2,nan --point2 1,2,3", "'1,2,nan'"},
        {"point-point --point1 nut@1,2 --point2 1,2,3", "'1,2'"},
        {"point-point --point1 @1,2,3 --point2 1,2,3", "'@1,2,3'"},
        {"point-point --point1 nut@1,2,3 --point2 1,2,3", "'nut'"},
        {"point-object a.stl b.stl --point 1,2,3", "--node"},
        {"point-object a.stl --point", "--point"},
        {"object-object a.stl", "--node1"},
        {"object-object a.stl b.stl --node2 nut", "--node1"},
        {"object-object a.stl b.stl --expect =2", "'=2'"},
        {"gap a.stl --from a@0,0,0 --to b@1,0,0", "--step"},
        {"gap a.stl --from a@0,0,0 --to b@1,0,0 --step 0", "'0'"},
        {"gap a.stl --from a@0,0,0 --to b@1,0,0 --step -1", "'-1'"},
        {"gap a.stl --from a@0,0,0 --to b@1,0,0 --step inf", "'inf'"},
        {"gap a.stl --from a@0,0,0 --to 1,0,0 --step 1", "'1,0,0'"},
        {"gap a.stl --from a@0,0,0 --to b@1,0,0 --step 1 --csv x --save x", "'x'"},
        {"gap a.stl --from a@0,0,0 --to b@1,0,0 --step 1 --csv x --picture x", "'x'"},
        {"line-object a.stl --line a@0,0,0 --step 1", "--to"},
        {"load a.xml --size 40x30", "--picture"},
        {"load a.xml --picture a.png --size 40", "'40'"},
        {"load", "DOCUMENT"},
        {"load a.xml a.stl --expect >1", "--expect"},
        {"run a.xml a.stl --expect >1", "'>1'"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.commandLine);
        const ParsedOptions parsed = parseWords(row.commandLine);
        EXPECT_FALSE(parsed.options);
        EXPECT_EQ(parsed.exitStatus, exitWrongUsage);
        EXPECT_NE(parsed.text.find(row.cause), std::string::npos) << parsed.text;
        EXPECT_EQ(parsed.text.find('\n'), std::string::npos) << parsed.text;
    }
}

} // namespace tesk::measure
