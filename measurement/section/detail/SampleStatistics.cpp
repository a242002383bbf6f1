#include <measurement/section/detail/SampleStatistics.h>

#include <measurement/geometry/detail/Constants.h>
#include <measurement/geometry/detail/VectorMath.h>

#include <cmath>

namespace tesk::measurement::detail {

float distanceBetween(const osg::Pnt3f& first, const osg::Pnt3f& second) {
    return std::sqrt(squaredLength(difference(first, second)));
}

SampleStatistics calcStatistics(const PointPairs& pointPairs, float sum) {
    const auto count = static_cast<float>(pointPairs.size());
    SampleStatistics statistics{sum / count, 0.0f, largestFloat, -largestFloat};
    for (const auto& [first, second] : pointPairs) {
        const float distance = distanceBetween(first, second);
        if (distance < statistics.minimum) statistics.minimum = distance;
        if (distance > statistics.maximum) statistics.maximum = distance;
        statistics.deviation += std::fabs(distance - statistics.average);
    }
    statistics.deviation /= count;
    return statistics;
}

} // namespace tesk::measurement::detail
