#include <apps/measure/Expectation.h>

#include <gtest/gtest.h>

#include <limits>

namespace tesk::measure {

TEST(Expectation, ComparesAsItsOperatorSays) {
    const struct {
        const char* text;
        bool below, equal, above;
    } rows[] = {
        {"< 2", true, false, false}, {"<= 2", true, true, false},    {"> 2", false, false, true},
        {">=2", false, true, true},  {" == 2 ", false, true, false}, {"!=  2", true, false, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const auto expectation = Expectation::parse(row.text);
        ASSERT_TRUE(expectation);
        EXPECT_EQ(expectation->isMetBy(1.0f), row.below);
        EXPECT_EQ(expectation->isMetBy(2.0f), row.equal);
        EXPECT_EQ(expectation->isMetBy(3.0f), row.above);
        EXPECT_FALSE(expectation->isMetBy(std::numeric_limits<float>::quiet_NaN()));
    }
}

TEST(Expectation, ComparesInSinglePrecision) { EXPECT_TRUE(Expectation::parse("== 0.100000001")->isMetBy(0.1f)); }

TEST(Expectation, RefusesEverythingElse) {
    for (const char* text : {"", "2", "=2", "=> 2", "<", "< ", "< two", "< nan", "< 1 2", "<> 2", "x < 2"}) {
        EXPECT_FALSE(Expectation::parse(text)) << text;
    }
}

TEST(Expectation, FollowsAName) {
    const struct {
        const char* text;
        const char* name;
        const char* condition;
    } rows[] = {
        {"vessel  to  stirrer >= 1.5", "vessel  to  stirrer", ">= 1.5"},
        {" a<2 ", "a", "< 2"},
        {"a > b == 2", "a > b", "== 2"},
        {"a= < 2", "a=", "< 2"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const auto expectation = NamedExpectation::parse(row.text);
        ASSERT_TRUE(expectation);
        EXPECT_EQ(expectation->name, row.name);
        EXPECT_EQ(expectation->expectation.getText(), row.condition);
    }
    for (const char* text : {"", "nut", "nut 2", "> 2", " >= 2", "nut >= ", "nut > two", "nut = 2"}) {
        EXPECT_FALSE(NamedExpectation::parse(text)) << text;
    }
}

} // namespace tesk::measure
