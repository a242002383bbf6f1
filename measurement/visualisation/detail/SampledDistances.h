#pragma once

#include <measurement/section/detail/SampleStatistics.h>

#include <optional>

namespace tesk::measurement {
class Measurement;
}

namespace tesk::measurement::detail {

/// What is shown of a measurement that consists of samples. Valid until the measurement's next update.
struct SampledDistances {
    float maximum;
    float minimum;
    float average;
    const PointPairs& pointPairs;
};

/// Of a line-object or gap measurement; nothing for any other, nor for null.
std::optional<SampledDistances> getSampledDistances(const Measurement* measurement);

} // namespace tesk::measurement::detail
