#pragma once

#include <measurement/model/AbstractMeasurement.h>

#include <list>
#include <utility>

namespace tesk::measurement {

/// The gap between two objects along a straight track, such as that between a blade and its casing.
///
/// The track runs from a point picked on the first object to one picked on the second. At every sample distance along
/// it, its start included, the first object is cut by the plane across the track, as GeometrySliceFactory cuts; a
/// sample is the pair of closest points of that outline and of the whole second object, as DistanceBoundingVolumeTree
/// finds it. Where the plane misses the first object there is no sample. The end of the track has one only when the
/// steps lead there exactly.
///
/// Everything is in world coordinates. Setters store; call update() to measure. Without both objects, and where no
/// plane meets the first one, there are no samples; average, deviation and maximum are then 0 and the minimum is
/// 3.4028235e38. So it is for points that coincide or are not finite, which give no direction to cut across. A second
/// object without triangles gives pairs of origins.
///
/// A sample distance that is not positive, not a number or too small to change the place on the track leaves it at the
/// place reached, the start if it is so from the beginning.
///
/// Cost of an update: for all steps together one slicing, for each the search between its outline and a hierarchy
/// over the second object, which is built once and only where searches come. It keeps one pair of points for each
/// sample.
///
/// \code
/// GapMeasurement* const gap = manager->createGapMeasurement();
/// gap->setNode1(blade, tip);
/// gap->setNode2(casing, wall);
/// gap->setSampleDistance(0.5f);
/// gap->update();
/// const float tightest = gap->getMinimumDistance();
/// \endcode
class TESK_MEASUREMENT_EXPORT GapMeasurement : public AbstractMeasurement {
public:
    using PointPairs = std::list<std::pair<osg::Pnt3f, osg::Pnt3f>>;

    explicit GapMeasurement(MeasurementManager* owner);
    /// Takes the nodes for name and node access only: nothing is measured until setNode1() and setNode2() are called.
    GapMeasurement(MeasurementManager* owner, const osg::NodePtr& firstNode, const osg::NodePtr& secondNode);

    /// Measures anew.
    void update() override;
    /// The average distance.
    float getValue() const override;

    /// Stores the object that is cut, the root of a subtree, and the start of the track.
    void setNode1(const osg::NodePtr& object, const osg::Pnt3f& point);
    /// Stores the object that is searched, the root of a subtree, and the end of the track.
    void setNode2(const osg::NodePtr& object, const osg::Pnt3f& point);
    /// The step along the track, 1 unless set.
    void setSampleDistance(float distance) { sampleDistance = distance; }

    osg::Pnt3f getPoint1() const { return point1; }
    osg::Pnt3f getPoint2() const { return point2; }
    float getSampleDistance() const { return sampleDistance; }

    float getMinimumDistance() const { return minimumDistance; }
    float getMaximumDistance() const { return maximumDistance; }
    float getAverageDistance() const { return averageDistance; }
    /// The mean of the distances' absolute differences from the average.
    float getDeviation() const { return deviation; }
    /// A pair for each sample along the track: first on the outline of object 1, second on object 2.
    const PointPairs& getPointPairs() const { return pointPairs; }

private:
    void sampleTrack();
    void addSample(const osg::Pnt3f& onOutline, const osg::Pnt3f& onObject2);
    void calcStatistics();

    /// What is measured; not what getNode1() and getNode2() give after the construction with nodes.
    osg::RefPtr<osg::NodePtr> object1;
    osg::Pnt3f point1{0.0f, 0.0f, 0.0f};
    osg::RefPtr<osg::NodePtr> object2;
    osg::Pnt3f point2{0.0f, 0.0f, 0.0f};
    float sampleDistance = 1.0f;
    /// The sum of the distances during an update.
    float averageDistance = 0.0f;
    float deviation = 0.0f;
    float minimumDistance = 0.0f;
    float maximumDistance = 0.0f;
    PointPairs pointPairs;
};

} // namespace tesk::measurement
