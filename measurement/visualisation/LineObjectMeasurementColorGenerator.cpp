#include <measurement/visualisation/LineObjectMeasurementColorGenerator.h>

#include <algorithm>

namespace tesk::measurement {

osg::Color3f LineObjectMeasurementColorGenerator::getColor(float reference, float value) {
    float t = (value - reference) * (7.0f / reference) + 0.5f;
    // The constant stands first, so that NaN becomes 0.
    t = std::max(0.0f, t);
    t = std::min(t, 1.0f);
    const float u = 1.0f - t;
    return osg::Color3f(0.25f * u + 0.8f * t, 0.75f * u + 0.8f * t, 1.0f * u + 0.0f * t);
}

} // namespace tesk::measurement
