#pragma once

#include <OpenSG/OSGVector.h>

#include <list>
#include <utility>

namespace tesk::measurement::detail {

using PointPairs = std::list<std::pair<osg::Pnt3f, osg::Pnt3f>>;

/// Of the distances between the two points of each sample.
struct SampleStatistics {
    float average;
    /// The mean of the absolute differences from the average.
    float deviation;
    float minimum;
    float maximum;
};

float distanceBetween(const osg::Pnt3f& first, const osg::Pnt3f& second);

/// For at least one pair. The sum is that of the distances, added up in the order in which they were measured; all else
/// goes by the order of the list. A distance that is NaN is neither minimum nor maximum; these are the largest float
/// and its negative when there is no other.
SampleStatistics calcStatistics(const PointPairs& pointPairs, float sum);

} // namespace tesk::measurement::detail
