#include <measurement/visualisation/detail/SampledDistances.h>

#include <measurement/section/GapMeasurement.h>
#include <measurement/section/LineObjectMeasurement.h>

namespace tesk::measurement::detail {

namespace {

template <class Sampled> SampledDistances distancesOf(const Sampled& measurement) {
    return {measurement.getMaximumDistance(), measurement.getMinimumDistance(), measurement.getAverageDistance(),
            measurement.getPointPairs()};
}

} // namespace

std::optional<SampledDistances> getSampledDistances(const Measurement* measurement) {
    if (const auto* const lineObject = dynamic_cast<const LineObjectMeasurement*>(measurement))
        return distancesOf(*lineObject);
    if (const auto* const gap = dynamic_cast<const GapMeasurement*>(measurement)) return distancesOf(*gap);
    return std::nullopt;
}

} // namespace tesk::measurement::detail
