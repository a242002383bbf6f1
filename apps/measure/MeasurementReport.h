#pragma once

#include <apps/measure/MeasurementInput.h>
#include <apps/measure/Report.h>

namespace tesk::measurement {
class Measurement;
}

namespace tesk::measure {

/// What an updated measurement found, with the names of the input's nodes and its name in single blanks.
///
/// Throws Failure when there is no value: no circle because three points lie on one line, no samples, a search for the
/// least distance that ended without points, or a result that is not finite.
Report measurementReport(const measurement::Measurement& measurement, const MeasurementInput& input);

/// The text with one blank in place of several: the library's names have two on each side of "to".
std::string singleSpaced(const std::string& text);

} // namespace tesk::measure
