#include <apps/measure/Numbers.h>

#include <gtest/gtest.h>

#include <limits>

namespace tesk::measure {

TEST(Numbers, AreReadWholeAndFinite) {
    const struct {
        const char* text;
        std::optional<float> number;
    } rows[] = {
        {"1.5", 1.5f},         {"-0.25", -0.25f},      {"+3", 3.0f},           {".5", 0.5f},
        {"1e-3", 1e-3f},       {"", std::nullopt},     {"+", std::nullopt},    {"+-3", std::nullopt},
        {"1,5", std::nullopt}, {" 1", std::nullopt},   {"1m", std::nullopt},   {"nan", std::nullopt},
        {"inf", std::nullopt}, {"1e39", std::nullopt}, {"0x10", std::nullopt},
    };
    for (const auto& row : rows) EXPECT_EQ(parseNumber(row.text), row.number) << row.text;
}

TEST(Numbers, OfAPointAreThreeWithinRange) {
    const auto point = parsePoint("-1,2.5,+3e2");
    ASSERT_TRUE(point);
    EXPECT_EQ((*point)[0], -1.0f);
    EXPECT_EQ((*point)[1], 2.5f);
    EXPECT_EQ((*point)[2], 300.0f);
    for (const char* text :
         {"", "1,2", "1,2,", "1,2,3,", "1,2,3,4", "1;2;3", "1,nan,3", "1,2,-inf", "1,2e18,3", "a,b,c"}) {
        EXPECT_FALSE(parsePoint(text)) << text;
    }
}

TEST(Numbers, AreWrittenShortWithGivenDigits) {
    const struct {
        float value;
        int digits;
        const char* text;
    } rows[] = {
        {0.1f, 7, "0.1"},
        {0.1f, 9, "0.100000001"},
        {2.0f, 9, "2"},
        {-0.0f, 7, "0"},
        {1234567.0f, 4, "1.235e+06"},
        {0.00001f, 3, "1e-05"},
        {1.0f / 3.0f, 1, "0.3"},
        {std::numeric_limits<float>::quiet_NaN(), 7, "nan"},
        {-std::numeric_limits<float>::infinity(), 7, "-inf"},
    };
    for (const auto& row : rows) EXPECT_EQ(formatNumber(row.value, row.digits), row.text);
}

} // namespace tesk::measure
