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
        {"line-object a.stl --line a@0,0,0 --step 1", "--to"},
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
