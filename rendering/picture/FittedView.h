#pragma once

#include <OpenSG/OSGMatrix.h>
#include <OpenSG/OSGVector.h>

#include <vector>

namespace tesk::rendering {

/// A box along the axes of the world; lower is nowhere above upper.
struct Box {
    osg::Pnt3f lower;
    osg::Pnt3f upper;

    void extendBy(const osg::Pnt3f& point);
    void extendBy(const Box& box);
    float getDiagonal() const;
    std::vector<osg::Pnt3f> getCorners() const;
};

/// The smallest box of the points; the origin when there are none.
Box boxOf(const std::vector<osg::Pnt3f>& points);

/// Which part of a picture's width or height stays free at each edge, from 0 to below 0.5.
struct Margins {
    float left = 0.06f;
    float right = 0.06f;
    float bottom = 0.06f;
    float top = 0.06f;
};

/// A perspective camera: in its own frame it stands at the origin, looks along -z and has y up.
struct FittedView {
    /// Vertical angle of view, in radians; small, so that parallel edges look nearly so.
    static constexpr float fieldOfView = 0.5f;

    osg::Matrix cameraToWorld;
    /// Distances of the clipping planes.
    float nearPlane = 0.0f;
    float farPlane = 0.0f;

    osg::Pnt3f getEye() const;
    /// Where a point in front of the camera is seen, in parts of the picture's width from the left and of its height
    /// from the bottom. aspect is width by height.
    osg::Pnt2f project(const osg::Pnt3f& point, float aspect) const;
};

/// The nearest camera that sees all points within the margins.
///
/// viewFrom points from the scene to the camera, in world coordinates; its length does not matter, but it must not be
/// zero. z is up in the picture; seen from straight above y is, from straight below -y, so that x runs to the right in
/// both. aspect is width by height. The clipping planes take in all of drawn, as far as it is not much nearer than the
/// points. Points without extent, or with less than single precision can show there, are seen as a box of a ten
/// thousandth of their coordinates or 1e-15, those at the origin, or none at all, as one of size 1. Linear in the
/// points.
FittedView fitView(const std::vector<osg::Pnt3f>& fitted, const Box& drawn, const osg::Vec3f& viewFrom, float aspect,
                   const Margins& margins);

} // namespace tesk::rendering
