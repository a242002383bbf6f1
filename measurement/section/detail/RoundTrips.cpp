#include <measurement/section/detail/RoundTrips.h>

#include <algorithm>
#include <cstring>

namespace tesk::measurement::detail {

namespace {

constexpr int mantissaBits = 23;

/// Of positive numbers: one more for the next larger number.
std::uint32_t toBits(float number) {
    std::uint32_t bits;
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

float toNumber(std::uint32_t bits) {
    float number;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

} // namespace

bool RoundTrips::enterEdge(const LineGraphNode* first, const LineGraphNode* second, float& walked) {
    ++edgeCount;
    if (first == watchedFirst && second == watchedSecond) {
        // Also ends the walk when lengths are not finite: infinity does not grow, and nothing exceeds NaN.
        if (!(walked > previous)) return false;
        const float skipped = skipRounds(walked);
        beforePrevious = skipped == walked ? previous : 0.0f;
        previous = walked = skipped;
    } else if (edgeCount >= nextWatch) {
        nextWatch = 2 * edgeCount;
        watchedFirst = first;
        watchedSecond = second;
        previous = walked;
        beforePrevious = 0.0f;
    }
    return true;
}

float RoundTrips::skipRounds(float walked) const {
    if (!(beforePrevious > 0.0f)) return walked;
    const std::uint32_t before = toBits(beforePrevious), now = toBits(walked);
    const std::uint32_t gain = now - before;
    if (before >> mantissaBits != now >> mantissaBits || gain % 2 != 0) return walked;
    const std::uint32_t powerOfTwo = ((now >> mantissaBits) + 1) << mantissaBits;
    // A distance that is infinite or NaN has larger bits than any number.
    const std::uint32_t repeats = (std::min(powerOfTwo, toBits(distance)) - now) / gain;
    // The last ones are walked: they may cross the limit on the way.
    return repeats < 2 ? walked : toNumber(now + (repeats - 1) * gain);
}

} // namespace tesk::measurement::detail
