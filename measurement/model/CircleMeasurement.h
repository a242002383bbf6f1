#pragma once

#include <measurement/model/AbstractMeasurement.h>

namespace tesk::measurement {

/// The circle through three picked points, such as three on the rim of a bore.
///
/// The points share one frame, the caller's choice (world coordinates from a host), and are stored unchanged; centre
/// and normal are in that frame. Everything is at zero until it is set.
///
/// Points on one line, or two that coincide, give no circle: where the computed normal is exactly zero the centre lies
/// half way between points 1 and 2. Test the normal's length. Points that are nearly on one line, or in a plane along
/// the x axis, may also give a centre of infinities or NaN; filter with isValid().
///
/// Method: intersection of two chords' perpendicular bisectors in the circle's plane, by Cramer's rule on one pair of
/// coordinates.
class TESK_MEASUREMENT_EXPORT CircleMeasurement : public AbstractMeasurement {
public:
    explicit CircleMeasurement(MeasurementManager* owner);

    /// Computes centre and normal from the points, replacing what setCenter() and setNormal() stored.
    void update() override;
    /// The radius: the distance from centre to point 1.
    float getValue() const override;

    /// Stores a point with the node it was picked on, then updates.
    void setPoint1(const osg::NodePtr& node, const osg::Pnt3f& point);
    void setPoint2(const osg::NodePtr& node, const osg::Pnt3f& point);
    void setPoint3(const osg::NodePtr& node, const osg::Pnt3f& point);
    /// Stores the value alone, until the next update().
    void setCenter(const osg::Pnt3f& point) { center = point; }
    void setNormal(const osg::Vec3f& vector) { normal = vector; }

    osg::Pnt3f getPoint1() const { return point1; }
    osg::Pnt3f getPoint2() const { return point2; }
    osg::Pnt3f getPoint3() const { return point3; }
    osg::Pnt3f getCenter() const { return center; }
    /// (point 2 - point 1) x (point 3 - point 1), not normalised: its length is twice the area of the points' triangle.
    osg::Vec3f getNormal() const { return normal; }
    /// From point 2 to point 1.
    osg::Vec3f getVector() const;

private:
    osg::Pnt3f point1{0.0f, 0.0f, 0.0f};
    osg::Pnt3f point2{0.0f, 0.0f, 0.0f};
    osg::Pnt3f point3{0.0f, 0.0f, 0.0f};
    osg::Pnt3f center{0.0f, 0.0f, 0.0f};
    osg::Vec3f normal{0.0f, 0.0f, 0.0f};
};

} // namespace tesk::measurement
