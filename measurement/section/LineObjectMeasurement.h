#pragma once

#include <measurement/model/AbstractMeasurement.h>

#include <OpenSG/OSGGeometry.h>

#include <list>
#include <set>
#include <utility>

namespace tesk::measurement {

class LineGraph;
class LineGraphIterator;

/// How far a line object, such as a cable, stays from another object.
///
/// From the place on the lines nearest a picked point, the measurement walks along them in both directions in steps of
/// the sample distance, as a LineGraphIterator walks. A sample is a place on the line and the closest point of the
/// object, as PointObjectDistanceCalculator finds it. The walk in a direction ends
/// - at a dead end, which is sampled itself unless it lies within the last twentieth of the edge begun there;
/// - where it meets its own track;
/// - at a distance of more than 1.2 or less than 0.8 times that at the first sample, which is not recorded any more.
/// The place at the picked point is the first sample of both directions and counts twice. Of a closed loop the walk
/// backward has only the way to the first node.
///
/// The lines of all geometries of the line object count as one; ends not more than 0.005 apart are joined. Everything
/// is in world coordinates. Setters store; call update() to measure.
///
/// Without line or object the average is 0, there are no samples, minimum and maximum stay what they were, and the
/// manager is not told. A line object without lines is sampled at the origin. For an object without geometry the
/// closest point is the origin.
///
/// A sample distance that is not positive or not a number ends each walk after its first sample. One too small for
/// single precision to get along an edge, about 3e-8 of its length, ends it in front of that edge or on it.
///
/// Cost of an update: time and memory linear in the triangles and lines of the object, of which every sample then looks
/// at few. Only where the object is far smaller than its distance may a sample look at all of them.
/// One pair of points is kept for each sample.
///
/// \code
/// LineObjectMeasurement* const clearance = manager->createLineObjectMeasurement();
/// clearance->setLine(cable, picked);
/// clearance->setNode(housing);
/// clearance->update();
/// const float tightest = clearance->getMinimumDistance();
/// \endcode
class TESK_MEASUREMENT_EXPORT LineObjectMeasurement : public AbstractMeasurement {
public:
    using PointPairs = std::list<std::pair<osg::Pnt3f, osg::Pnt3f>>;

    explicit LineObjectMeasurement(MeasurementManager* owner);

    /// Measures anew.
    void update() override;
    /// The average distance.
    float getValue() const override;

    /// Stores the line object, the root of a subtree, and a point on it or near it.
    void setLine(const osg::NodePtr& lineObject, const osg::Pnt3f& point);
    /// Stores the object that is searched, the root of a subtree.
    void setNode(const osg::NodePtr& object);
    /// The step along the line, 10 unless set.
    void setSampleDistance(float distance) { sampleDistance = distance; }

    osg::NodePtr getLine() const { return line; }
    osg::Pnt3f getLinePoint() const { return linePoint; }
    osg::NodePtr getNode() const { return node; }
    float getSampleDistance() const { return sampleDistance; }

    float getMinimumDistance() const { return minimumDistance; }
    float getMaximumDistance() const { return maximumDistance; }
    float getAverageDistance() const { return averageDistance; }
    /// The mean of the distances' absolute differences from the average.
    float getDeviation() const { return deviation; }
    /// A pair for each sample, from the backward end of the walk to the forward end: first on the line, second on the
    /// object.
    const PointPairs& getPointPairs() const { return pointPairs; }

private:
    static osg::NodePtr mergeLineGeometry(const osg::NodePtr& lineObject);
    static void mergeLinesRec(const osg::NodePtr& lineObject, const osg::GeoPositions3fPtr& positions,
                              const osg::GeoIndicesUI32Ptr& indices);
    void sampleLine(const LineGraph& graph);
    bool moveForward(LineGraphIterator& place, std::set<int>& visited) const;
    bool moveBackward(LineGraphIterator& place, std::set<int>& visited) const;
    void calcStatistics();

    osg::RefPtr<osg::NodePtr> line;
    osg::Pnt3f linePoint{0.0f, 0.0f, 0.0f};
    osg::RefPtr<osg::NodePtr> node;
    float sampleDistance = 10.0f;
    /// The sum of the distances during an update.
    float averageDistance = 0.0f;
    float deviation = 0.0f;
    float minimumDistance = 0.0f;
    float maximumDistance = 0.0f;
    /// A sample beyond these times the first sample's distance ends a walk.
    float upperBandFactor = 1.2f;
    float lowerBandFactor = 0.8f;
    PointPairs pointPairs;
};

} // namespace tesk::measurement
