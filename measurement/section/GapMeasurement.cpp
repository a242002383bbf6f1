#include <measurement/section/GapMeasurement.h>

#include <measurement/acceleration/outlines/OutlineDistance.h>
#include <measurement/geometry/detail/Constants.h>
#include <measurement/geometry/detail/VectorMath.h>
#include <measurement/model/detail/GroupNode.h>
#include <measurement/scene/detail/SubtreeSnapshot.h>
#include <measurement/section/GeometrySliceFactory.h>
#include <measurement/section/detail/SampleStatistics.h>

#include <cmath>
#include <vector>

namespace tesk::measurement {

namespace {

/// A track shorter than this keeps its vector as direction.
constexpr float shortestTrack = 1e-6f;

struct Track {
    osg::Pnt3f start;
    osg::Vec3f direction;
    float length;

    Track(const osg::Pnt3f& from, const osg::Pnt3f& to)
        : start(from), direction(detail::difference(to, from)), length(std::sqrt(detail::squaredLength(direction))) {
        if (length >= shortestTrack)
            direction.setValues(direction[0] / length, direction[1] / length, direction[2] / length);
        // A length of infinity or NaN leaves nothing to cut across, which one look at the start shows as well as many.
        if (!(length <= detail::largestFloat)) length = 0.0f;
    }

    /// That of the plane across the track at distance t from its start, whose normal is the direction.
    float offsetAt(float t) const { return -detail::dot(direction, osg::Vec3f(detail::pointAt(start, t, direction))); }
};

/// The steps along a track.
class Steps {
public:
    Steps(const Track& trackToSample, float sampleDistance) : track(trackToSample), step(sampleDistance) {}

    bool areLeft() const { return !isDone; }
    /// Offsets of the next planes, of as many as are worth cutting with at once.
    std::vector<float> takeOffsets() {
        std::vector<float> offsets;
        while (!isDone && offsets.size() < planesAtOnce) {
            offsets.push_back(track.offsetAt(t));
            const float next = t + step;
            // Also ends a track that does not go on: both are false for NaN.
            isDone = !(next > t && next <= track.length);
            t = next;
        }
        return offsets;
    }

private:
    static constexpr std::size_t planesAtOnce = 4096;

    const Track& track;
    float step;
    float t = 0.0f;
    bool isDone = false;
};

} // namespace

GapMeasurement::GapMeasurement(MeasurementManager* owner) : AbstractMeasurement(owner) {}

// Deliberate: the base takes the nodes, and this class has none to measure.
GapMeasurement::GapMeasurement(MeasurementManager* owner, const osg::NodePtr& firstNode, const osg::NodePtr& secondNode)
    : AbstractMeasurement(owner, firstNode, secondNode) {}

void GapMeasurement::update() {
    pointPairs.clear();
    averageDistance = 0.0f;
    deviation = 0.0f;
    minimumDistance = detail::largestFloat;
    maximumDistance = 0.0f;
    if (object1 != osg::NullFC && object2 != osg::NullFC) sampleTrack();
    if (!pointPairs.empty()) calcStatistics();
    AbstractMeasurement::update();
}

float GapMeasurement::getValue() const { return averageDistance; }

void GapMeasurement::setNode1(const osg::NodePtr& object, const osg::Pnt3f& point) {
    detail::hold(object1, object);
    AbstractMeasurement::setNode1(object);
    point1 = point;
}

void GapMeasurement::setNode2(const osg::NodePtr& object, const osg::Pnt3f& point) {
    detail::hold(object2, object);
    AbstractMeasurement::setNode2(object);
    point2 = point;
}

void GapMeasurement::sampleTrack() {
    const detail::SubtreeSnapshot snapshot2(object2);
    acceleration::OutlineDistance search(snapshot2.getMesh());
    const Track track(point1, point2);
    for (Steps steps(track, sampleDistance); steps.areLeft();) {
        const auto addOutline = [&](const std::vector<Segment>& outline) {
            if (outline.empty()) return;
            search.calcDistance(outline);
            addSample(search.getClosestPoint1(), search.getClosestPoint2());
        };
        GeometrySliceFactory().createSlices(object1, track.direction, steps.takeOffsets(), addOutline);
    }
}

void GapMeasurement::addSample(const osg::Pnt3f& onOutline, const osg::Pnt3f& onObject2) {
    pointPairs.emplace_back(onOutline, onObject2);
    averageDistance += detail::distanceBetween(onOutline, onObject2);
}

void GapMeasurement::calcStatistics() {
    const detail::SampleStatistics statistics = detail::calcStatistics(pointPairs, averageDistance);
    averageDistance = statistics.average;
    deviation = statistics.deviation;
    minimumDistance = statistics.minimum;
    maximumDistance = statistics.maximum;
}

} // namespace tesk::measurement
