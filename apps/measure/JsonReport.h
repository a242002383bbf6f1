#pragma once

#include <apps/measure/Report.h>
#include <apps/measure/SceneCatalogue.h>

#include <string>
#include <vector>

namespace tesk::measure {

/// A measurement as one JSON object: `kind`, `name`, `value` and further numbers, points and vectors as `[x, y, z]`
/// with the node of each under `nodes`, `samples` (their number) and `expectations` where there are any.
///
/// Numbers have up to 9 significant digits, enough to get the single-precision value back; what is not finite is null.
/// Bytes that are not UTF-8 become U+FFFD.
std::string jsonReport(const Report& report);

/// The same objects, in their order, as `measurements` of one object. What is wrong with one is
/// its `problem`.
std::string jsonReports(const std::vector<Report>& reports);

/// The scene as one JSON object whose `nodes` lists every node in document order with `name`, `kind`, `file`, `parent`
/// (null for the root of a file), `depth`, `triangles`, `lines` and `bounds` (null for an empty node).
std::string jsonList(const SceneCatalogue& catalogue);

} // namespace tesk::measure
