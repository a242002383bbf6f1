#include <measurement/visualisation/detail/ChartLayout.h>

#include <measurement/geometry/Validity.h>
#include <measurement/geometry/detail/Constants.h>
#include <measurement/visualisation/LineObjectMeasurementColorGenerator.h>

#include <algorithm>
#include <cmath>

namespace tesk::measurement::detail {

namespace {

const float margin = 0.2f;
/// From the baseline of a text to its middle.
const float textRise = 0.2f;

float planeDistance(const osg::Pnt2f& a, const osg::Pnt2f& b) {
    const float x = a[0] - b[0];
    const float y = a[1] - b[1];
    return std::sqrt(x * x + y * y);
}

std::array<osg::Pnt2f, 4> rectangle(float left, float bottom, float right, float top) {
    return {osg::Pnt2f(left, bottom), osg::Pnt2f(right, bottom), osg::Pnt2f(right, top), osg::Pnt2f(left, top)};
}

std::optional<ChartSample> findNearest(const std::vector<ChartSample>& samples, const osg::Pnt2f& place) {
    std::optional<ChartSample> nearest;
    float nearestDistance = largestFloat;
    for (const ChartSample& sample : samples) {
        const float distance = planeDistance(sample.position, place);
        if (!(distance < nearestDistance)) continue;
        nearestDistance = distance;
        nearest = sample;
    }
    return nearest;
}

} // namespace

bool ChartFrame::containsMouse() const {
    return zoomedLeft <= mousePosition[0] && mousePosition[0] <= zoomedRight && bottom <= mousePosition[1] &&
           mousePosition[1] <= top;
}

float ChartFrame::getZoomedX(float x) const {
    if (!containsMouse()) return x;
    const double turn = std::atan(static_cast<double>(x - mousePosition[0]));
    return static_cast<float>(static_cast<double>(x) + turn * static_cast<double>(zoomStrength));
}

void ChartFrame::zoom() {
    zoomedLeft = getZoomedX(left);
    zoomedRight = getZoomedX(right);
}

ChartScale::ChartScale(const ChartFrame& chartFrame, float maximumDistance)
    : frame(chartFrame), offset(std::max(0.0f, -0.2f * maximumDistance)), range(maximumDistance - offset) {}

std::optional<float> ChartScale::getHeight(float distance) const {
    if (!isFiniteNumber(distance)) return std::nullopt;
    const float rise = distance - offset;
    // Where everything is at distance zero the range is zero, too.
    const float share = rise == 0.0f ? 0.0f : rise / range;
    const float height = share * ((frame.top - frame.bottom) - 2.0f * margin) + (frame.bottom + margin);
    // Both are false for NaN.
    if (frame.bottom <= height && height <= frame.top) return height;
    return std::nullopt;
}

ChartSamples layOutSamples(const PointPairs& pointPairs, float averageDistance, const ChartFrame& frame,
                           const ChartScale& scale) {
    ChartSamples result;
    result.all.reserve(pointPairs.size());
    const auto steps = static_cast<float>(pointPairs.size() + 1);
    std::size_t number = 0;
    for (const auto& [first, second] : pointPairs) {
        const auto step = static_cast<float>(++number);
        const float distance = distanceBetween(first, second);
        const std::optional<float> height = scale.getHeight(distance);
        if (!height) continue;
        const float x = frame.getZoomedX(frame.left + step * (frame.right - frame.left) / steps);
        const osg::Color3f color = LineObjectMeasurementColorGenerator::getColor(averageDistance, distance);
        result.all.push_back({osg::Pnt2f(x, *height), color, distance});
    }
    result.nearest = findNearest(result.all, frame.mousePosition);
    return result;
}

osg::Pnt2f labelPosition(const ChartFrame& frame, float height) {
    return osg::Pnt2f(frame.zoomedRight + 1.1f, height - textRise);
}

std::array<osg::Pnt2f, 4> plateCorners(const osg::Pnt2f& baseline, float textWidth) {
    const float middle = baseline[1] + textRise;
    return rectangle(baseline[0] - margin, middle - 0.35f, baseline[0] + textWidth + margin, middle + 0.3f);
}

std::array<osg::Pnt2f, 4> frameCorners(const ChartFrame& frame) {
    return rectangle(frame.zoomedLeft, frame.bottom, frame.zoomedRight, frame.top);
}

} // namespace tesk::measurement::detail
