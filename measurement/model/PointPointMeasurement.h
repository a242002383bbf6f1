#pragma once

#include <measurement/model/AbstractMeasurement.h>

namespace tesk::measurement {

/// The distance between two picked points.
///
/// The points share one frame, the caller's choice (world coordinates from a host), and are stored unchanged. Both are
/// at the origin until they are set.
class TESK_MEASUREMENT_EXPORT PointPointMeasurement : public AbstractMeasurement {
public:
    explicit PointPointMeasurement(MeasurementManager* owner);

    void update() override;
    /// The distance between the points.
    float getValue() const override;

    /// Stores a point with the node it was picked on, then updates.
    void setPoint1(const osg::NodePtr& node, const osg::Pnt3f& point);
    void setPoint2(const osg::NodePtr& node, const osg::Pnt3f& point);

    osg::Pnt3f getPoint1() const { return point1; }
    osg::Pnt3f getPoint2() const { return point2; }
    /// From point 2 to point 1.
    osg::Vec3f getVector() const;

private:
    osg::Pnt3f point1{0.0f, 0.0f, 0.0f};
    osg::Pnt3f point2{0.0f, 0.0f, 0.0f};
};

} // namespace tesk::measurement
