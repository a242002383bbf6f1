#include <measurement/section/GapMeasurement.h>

#include <measurement/geometry/detail/Constants.h>
#include <measurement/geometry/detail/VectorMath.h>
#include <measurement/model/detail/GroupNode.h>
#include <measurement/scene/BoundingVolumeTree.h>
#include <measurement/scene/DistanceBoundingVolumeTree.h>
#include <measurement/section/GeometrySliceFactory.h>
#include <measurement/section/detail/SampleStatistics.h>

#include <cmath>

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

    /// The plane across the track at distance t from its start.
    osg::Vec4f planeAt(float t) const {
        const osg::Pnt3f place = detail::pointAt(start, t, direction);
        return {direction[0], direction[1], direction[2], -detail::dot(direction, osg::Vec3f(place))};
    }
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
    BoundingVolumeTree tree2;
    tree2.build(object2, true);
    const Track track(point1, point2);
    GeometrySliceFactory factory;
    std::list<Segment> outline;
    float t = 0.0f, next = 0.0f;
    do {
        t = next;
        factory.createSlice(object1, track.planeAt(t), outline);
        if (!outline.empty()) addSample(outline, tree2);
        next = t + sampleDistance;
        // Also ends a track that does not go on: both are false for NaN.
    } while (next > t && next <= track.length);
}

void GapMeasurement::addSample(const std::list<Segment>& outline, const BoundingVolumeTree& tree2) {
    BoundingVolumeTree outlineTree;
    outlineTree.build(outline);
    const DistanceBoundingVolumeTree search(outlineTree, tree2, detail::largestFloat);
    pointPairs.emplace_back(search.getClosestPoint1(), search.getClosestPoint2());
    averageDistance += detail::distanceBetween(search.getClosestPoint1(), search.getClosestPoint2());
}

void GapMeasurement::calcStatistics() {
    const detail::SampleStatistics statistics = detail::calcStatistics(pointPairs, averageDistance);
    averageDistance = statistics.average;
    deviation = statistics.deviation;
    minimumDistance = statistics.minimum;
    maximumDistance = statistics.maximum;
}

} // namespace tesk::measurement
