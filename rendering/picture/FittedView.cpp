#include <rendering/picture/FittedView.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace tesk::rendering {

namespace {

/// Right, up, and towards the camera.
using Axes = std::array<osg::Vec3f, 3>;

osg::Vec3f normalized(osg::Vec3f vector) {
    // Squares of large components would overflow.
    const float largest = std::max({std::abs(vector[0]), std::abs(vector[1]), std::abs(vector[2])});
    vector = osg::Vec3f(vector[0] / largest, vector[1] / largest, vector[2] / largest);
    vector.normalize();
    return vector;
}

Axes cameraAxes(const osg::Vec3f& viewFrom) {
    constexpr float nearlyVertical = 1e-4f;
    const osg::Vec3f back = normalized(viewFrom);
    osg::Vec3f up(0.0f, 0.0f, 1.0f);
    if (std::max(std::abs(back[0]), std::abs(back[1])) < nearlyVertical)
        up = osg::Vec3f(0.0f, back[2] > 0.0f ? 1.0f : -1.0f, 0.0f);
    const osg::Vec3f right = normalized(up.cross(back));
    return {right, back.cross(right), back};
}

osg::Vec3f along(const Axes& axes, const osg::Vec3f& vector) {
    return {axes[0].dot(vector), axes[1].dot(vector), axes[2].dot(vector)};
}

osg::Pnt3f middleOf(const Box& box) {
    osg::Pnt3f middle;
    for (osg::UInt32 axis = 0; axis < 3; ++axis) middle[axis] = 0.5f * box.lower[axis] + 0.5f * box.upper[axis];
    return middle;
}

/// In the frame of the axes, relative to an origin.
std::vector<osg::Vec3f> inFrame(const std::vector<osg::Pnt3f>& points, const Axes& axes, const osg::Pnt3f& origin) {
    std::vector<osg::Vec3f> result;
    result.reserve(points.size());
    for (const osg::Pnt3f& point : points) result.push_back(along(axes, point - origin));
    return result;
}

/// The least extent that can be shown where the box is. Squares of smaller ones than 1e-15 vanish.
float leastExtent(const Box& box) {
    float largest = 0.0f;
    for (osg::UInt32 axis = 0; axis < 3; ++axis)
        largest = std::max({largest, std::abs(box.lower[axis]), std::abs(box.upper[axis])});
    return largest > 0.0f ? std::max(1e-4f * largest, 1e-15f) : 1.0f;
}

/// The camera's place along one axis of the picture.
///
/// A point at (x, z) is left of the right edge while x - eye <= high * (distance - z), the camera standing at height
/// distance above the plane z = 0, and in the same way right of the left edge; high and low are the edges' tangents.
/// The most demanding points fix the place of the camera's eye and how near it may come.
struct AxisFit {
    AxisFit(const std::vector<osg::Vec3f>& points, osg::UInt32 axis, float lowTangent, float highTangent)
        : low(lowTangent), high(highTangent) {
        for (const osg::Vec3f& point : points) {
            highest = std::max(highest, point[axis] + high * point[2]);
            lowest = std::min(lowest, point[axis] - low * point[2]);
        }
    }

    float getLeastDistance() const { return (highest - lowest) / (high + low); }
    float getEye(float distance) const { return 0.5f * (highest - high * distance + lowest + low * distance); }

    float low;
    float high;
    float highest = -HUGE_VALF;
    float lowest = HUGE_VALF;
};

/// The clipping planes take in the box from a tenth of the distance to the subject on.
FittedView lookFrom(const osg::Pnt3f& eye, const Axes& axes, const Box& drawn, float subjectDistance) {
    constexpr float nearestPart = 0.1f, room = 0.1f;
    const auto& [right, up, back] = axes;
    FittedView view;
    view.cameraToWorld = osg::Matrix(right[0], up[0], back[0], eye[0], right[1], up[1], back[1], eye[1], //
                                     right[2], up[2], back[2], eye[2], 0.0f, 0.0f, 0.0f, 1.0f);
    float nearest = subjectDistance, farthest = subjectDistance;
    for (const osg::Vec3f& corner : inFrame(drawn.getCorners(), axes, eye)) {
        nearest = std::min(nearest, -corner[2]);
        farthest = std::max(farthest, -corner[2]);
    }
    view.nearPlane = std::max(nearest, nearestPart * subjectDistance) * (1.0f - room);
    view.farPlane = farthest * (1.0f + room);
    return view;
}

} // namespace

void Box::extendBy(const osg::Pnt3f& point) {
    for (osg::UInt32 axis = 0; axis < 3; ++axis) {
        lower[axis] = std::min(lower[axis], point[axis]);
        upper[axis] = std::max(upper[axis], point[axis]);
    }
}

void Box::extendBy(const Box& box) {
    extendBy(box.lower);
    extendBy(box.upper);
}

float Box::getDiagonal() const { return (upper - lower).length(); }

std::vector<osg::Pnt3f> Box::getCorners() const {
    std::vector<osg::Pnt3f> corners;
    for (const float x : {lower[0], upper[0]})
        for (const float y : {lower[1], upper[1]})
            for (const float z : {lower[2], upper[2]}) corners.emplace_back(x, y, z);
    return corners;
}

Box boxOf(const std::vector<osg::Pnt3f>& points) {
    if (points.empty()) return {{0.0f, 0.0f, 0.0f}, {0.0f, 0.0f, 0.0f}};
    Box box{points.front(), points.front()};
    for (const osg::Pnt3f& point : points) box.extendBy(point);
    return box;
}

osg::Pnt3f FittedView::getEye() const { return {cameraToWorld[3][0], cameraToWorld[3][1], cameraToWorld[3][2]}; }

osg::Pnt2f FittedView::project(const osg::Pnt3f& point, float aspect) const {
    const osg::Vec3f way = point - getEye();
    const auto alongAxis = [&](osg::UInt32 axis) {
        const auto& column = cameraToWorld[axis];
        return column[0] * way[0] + column[1] * way[1] + column[2] * way[2];
    };
    const float halfHeight = -alongAxis(2) * std::tan(0.5f * fieldOfView);
    return {0.5f + 0.5f * alongAxis(0) / (halfHeight * aspect), 0.5f + 0.5f * alongAxis(1) / halfHeight};
}

FittedView fitView(const std::vector<osg::Pnt3f>& fitted, const Box& drawn, const osg::Vec3f& viewFrom, float aspect,
                   const Margins& margins) {
    Box box = boxOf(fitted);
    const float least = leastExtent(box);
    if (box.getDiagonal() < least) {
        const osg::Vec3f half(0.5f * least, 0.5f * least, 0.5f * least);
        box = {box.lower - half, box.upper + half};
        return fitView(box.getCorners(), drawn, viewFrom, aspect, margins);
    }
    const Axes axes = cameraAxes(viewFrom);
    const osg::Pnt3f middle = middleOf(box);
    const std::vector<osg::Vec3f> points = inFrame(fitted, axes, middle);
    const float tangent = std::tan(0.5f * FittedView::fieldOfView);
    const auto edge = [](float tangentOfHalf, float margin) { return tangentOfHalf * (1.0f - 2.0f * margin); };
    const AxisFit across(points, 0, edge(tangent * aspect, margins.left), edge(tangent * aspect, margins.right));
    const AxisFit upward(points, 1, edge(tangent, margins.bottom), edge(tangent, margins.top));

    float nearest = -HUGE_VALF;
    for (const osg::Vec3f& point : points) nearest = std::max(nearest, point[2]);
    // A line seen end-on would let the camera come as near as it likes.
    const float nearestAllowed = nearest + 0.25f * box.getDiagonal();
    const float distance = std::max({across.getLeastDistance(), upward.getLeastDistance(), nearestAllowed});
    const osg::Pnt3f eye =
        middle + axes[0] * across.getEye(distance) + axes[1] * upward.getEye(distance) + axes[2] * distance;
    box.extendBy(drawn);
    return lookFrom(eye, axes, box, distance - nearest);
}

} // namespace tesk::rendering
