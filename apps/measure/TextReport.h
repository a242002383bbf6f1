#pragma once

#include <apps/measure/Report.h>
#include <apps/measure/SceneCatalogue.h>

#include <string>
#include <vector>

namespace tesk::measure {

/// A measurement as an aligned table, its numbers with so many significant digits.
std::string textReport(const Report& report, int digits);

/// Measurements as one aligned table, a row for each and for each expectation beyond the first. What is
/// wrong with one stands in the last column.
std::string textReports(const std::vector<Report>& reports, int digits);

/// The scene's nodes as an aligned table, indented by depth; triangles, lines and bounds include what is below.
std::string textList(const SceneCatalogue& catalogue, int digits);

} // namespace tesk::measure
