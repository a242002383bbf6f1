#include <apps/measure/TextTable.h>

#include <apps/measure/TerminalText.h>

#include <gtest/gtest.h>

namespace tesk::measure {

TEST(TextTable, AlignsCharactersNotBytesAndDecimalPoints) {
    TextTable table({{"name", TextTable::Alignment::text},
                     {"empty", TextTable::Alignment::number},
                     {"value", TextTable::Alignment::number},
                     {"note", TextTable::Alignment::text}});
    table.addRow({"Δ", "", "-0.125", "last"});
    table.addRow({"Rührer", "", "12", ""});
    table.addRow({"nut", "", "1e-05", "x"});
    table.addRow({"none", "", "", ""});
    EXPECT_EQ(table.toString(), "name     value  note\n"
                                "Δ       -0.125  last\n"
                                "Rührer  12\n"
                                "nut      1e-05  x\n"
                                "none\n");
}

TEST(TerminalText, IsOneHarmlessLine) {
    const struct {
        const char* given;
        const char* shown;
    } rows[] = {
        {"Rührwerk–2 🔩", "Rührwerk–2 🔩"},
        {"a\nb\t\x1b[31m\x7f", "a?b??[31m?"},
        {"\xc2\x9b"
         "31m",
         "??31m"},
        {"\xff\xc3", "??"},
        {"\xe2\x82", "??"},
        {"\xc0\xaf", "??"},
        {"\xed\xa0\x80", "???"},
        {"\xe2\x80\xae"
         "x",
         "???x"},
    };
    for (const auto& row : rows) EXPECT_EQ(printable(row.given), row.shown);
}

TEST(TerminalText, IsShortenedBetweenCharacters) {
    EXPECT_EQ(shortened("Rührer", 2), "Rü");
    EXPECT_EQ(shortened("Rührer", 6), "Rührer");
    EXPECT_EQ(shortened("Rührer", 0), "");
}

} // namespace tesk::measure
