#include <apps/measure/JsonReport.h>

#include <gtest/gtest.h>

#include <limits>

namespace tesk::measure {

TEST(JsonReport, HoldsNumbersOfNineDigitsAndNullForWhatIsNone) {
    Report report;
    report.kind = "point-point";
    report.name = "a\"b\xff";
    report.numbers = {{"distance", "value", 0.1f}, {"other", "other", std::numeric_limits<float>::infinity()}};
    report.vectors = {{"point 1", "point1", {1e-12f, -3.0f, 16777217.0f}, "nut"}};
    report.expectations = {*Expectation::parse("<1")};
    EXPECT_EQ(jsonReport(report), R"({
  "kind": "point-point",
  "name": "a\"b�",
  "value": 0.100000001,
  "other": null,
  "point1": [
    9.99999996e-13,
    -3.0,
    16777216.0
  ],
  "nodes": {
    "point1": "nut"
  },
  "expectations": [
    {
      "condition": "< 1",
      "met": true
    }
  ]
}
)");
}

} // namespace tesk::measure
