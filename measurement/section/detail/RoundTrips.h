#pragma once

#include <cstdint>

namespace tesk::measurement {
class LineGraphNode;
}

namespace tesk::measurement::detail {

/// Ends, and shortens, the walk along a LineGraph that goes round a closed loop.
///
/// The next edge of a walk depends on the present one alone: once an edge comes again, all that follows is rounds. What
/// a round adds to the walked length depends on rounding, but between two powers of two floating-point numbers are
/// evenly spaced, and there it depends on the last bit alone, whether it is odd or even. So two rounds that lead from
/// even to even, or from odd to odd, add the same again and again, and many of them are one multiplication.
///
/// Cost: a step for each edge of a few dozen rounds at most, whatever the distance.
class RoundTrips {
public:
    explicit RoundTrips(float distanceToWalk) : distance(distanceToWalk) {}

    /// To be called on every edge that the walk enters, with the length walked up to it, less than the distance. Moves
    /// that on by rounds that would not use up the distance, to the bit as if they had been walked. False if no number
    /// of rounds would: the last one added nothing.
    bool enterEdge(const LineGraphNode* first, const LineGraphNode* second, float& walked);

private:
    float skipRounds(float walked) const;

    float distance;
    /// The edge whose coming again is watched for, a later one whenever the number of edges has doubled, since the
    /// first may lie before the loop.
    const LineGraphNode* watchedFirst = nullptr;
    const LineGraphNode* watchedSecond = nullptr;
    std::uint64_t edgeCount = 0;
    std::uint64_t nextWatch = 1;
    /// The length walked when the watched edge came last and the time before; 0 if there was none.
    float previous = 0.0f;
    float beforePrevious = 0.0f;
};

} // namespace tesk::measurement::detail
