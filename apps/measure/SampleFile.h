#pragma once

#include <measurement/section/GapMeasurement.h>

#include <string>

namespace tesk::measurement {
class Measurement;
}

namespace tesk::measure {

/// The samples of a gap or line-object; nothing for other kinds.
const measurement::GapMeasurement::PointPairs* samplesOf(const measurement::Measurement& measurement);

/// Replaces the file with comma-separated values: a line of titles, then for each sample both points and their
/// distance, with 9 significant digits. Throws Failure, which names the file.
void writeSamples(const std::string& path, const measurement::GapMeasurement::PointPairs& samples);

} // namespace tesk::measure
