#pragma once

#include <measurement/geometry/Validity.h>
#include <measurement/geometry/detail/VectorMath.h>

#include <array>
#include <cmath>

/// The points that a shown measurement is drawn with. Single precision in the written order.
namespace tesk::measurement::detail {

/// An arrow with a head at each end: the ends of its line, then for each end the apex and the square base of a pyramid.
using ArrowPoints = std::array<osg::Pnt3f, 12>;
enum ArrowPoint : unsigned { lineStart = 0, lineEnd = 1, startHead = 2, endHead = 7 };

/// The plate behind a label, then the border in front: four corners each, counter-clockwise from the lower left.
using PlatePoints = std::array<osg::Pnt3f, 8>;
enum PlatePoint : unsigned { backPlate = 0, border = 4 };

inline osg::Pnt3f midpoint(const osg::Pnt3f& a, const osg::Pnt3f& b) {
    return osg::Pnt3f((a[0] + b[0]) * 0.5f, (a[1] + b[1]) * 0.5f, (a[2] + b[2]) * 0.5f);
}

/// The point opposite to another about a centre, 2 * center - point.
inline osg::Pnt3f opposite(const osg::Pnt3f& point, const osg::Pnt3f& center) {
    return osg::Pnt3f(2.0f * center[0] - point[0], 2.0f * center[1] - point[1], 2.0f * center[2] - point[2]);
}

/// Half the edges of an arrowhead's base: perpendicular to the head and to each other.
struct HeadFrame {
    osg::Vec3f a;
    osg::Vec3f b;
};

/// The frame for a head as long as that vector; NaN for a zero vector.
inline HeadFrame headFrame(const osg::Vec3f& head) {
    HeadFrame frame{cross(osg::Vec3f(1.0f, 0.0f, 0.0f), head), cross(osg::Vec3f(0.0f, 1.0f, 0.0f), head)};
    // The product with the axis that lies closer to the head is the shorter one, even zero; the longer one is kept.
    if (squaredLength(frame.a) <= squaredLength(frame.b))
        frame.a = cross(frame.b, head);
    else
        frame.b = cross(frame.a, head);
    const float halfEdge = 0.2f * std::sqrt(squaredLength(head));
    frame.a = scaled(halfEdge / std::sqrt(squaredLength(frame.a)), frame.a);
    frame.b = scaled(halfEdge / std::sqrt(squaredLength(frame.b)), frame.b);
    return frame;
}

/// The arrow between two points, its heads as long as `head`, a vector along the line from start to end. The bases are
/// NaN for a zero vector, and for one whose squares leave the range of numbers.
inline ArrowPoints arrowPoints(const osg::Pnt3f& start, const osg::Pnt3f& end, const osg::Vec3f& head) {
    const HeadFrame frame = headFrame(head);
    const osg::Pnt3f startBase = pointAt(start, 1.0f, head);
    const osg::Pnt3f endBase = pointAt(end, -1.0f, head);
    const auto corner = [&](const osg::Pnt3f& base, float a, float b) { return pointAt(base, a, frame.a, b, frame.b); };
    return {start,
            end,
            start,
            corner(startBase, -1.0f, -1.0f),
            corner(startBase, 1.0f, -1.0f),
            corner(startBase, 1.0f, 1.0f),
            corner(startBase, -1.0f, 1.0f),
            end,
            corner(endBase, -1.0f, -1.0f),
            corner(endBase, 1.0f, -1.0f),
            corner(endBase, 1.0f, 1.0f),
            corner(endBase, -1.0f, 1.0f)};
}

/// A head's vector for a line from start to end: a tenth of the line.
inline osg::Vec3f headVector(const osg::Pnt3f& start, const osg::Pnt3f& end) {
    return scaled(0.1f, difference(end, start));
}

/// The plate for a text of that width and height whose last baseline starts at the origin, in the label's space.
///
/// Deliberate: the margins are uneven. They are 0.2 to the left, to the right and below, and the top edge lies 0.1
/// below the text's height.
inline PlatePoints platePoints(const osg::Vec2f& text) {
    const float left = -0.2f;
    const float bottom = -0.2f;
    const float right = text[0] + 0.2f;
    const float top = text[1] - 0.1f;
    const float behind = -0.1f;
    return {osg::Pnt3f(left, bottom, behind), osg::Pnt3f(right, bottom, behind), osg::Pnt3f(right, top, behind),
            osg::Pnt3f(left, top, behind),    osg::Pnt3f(left, bottom, 0.0f),    osg::Pnt3f(right, bottom, 0.0f),
            osg::Pnt3f(right, top, 0.0f),     osg::Pnt3f(left, top, 0.0f)};
}

/// Whether a line from start to end can be drawn.
inline bool isLineValid(const ArrowPoints& arrow) { return isValid(arrow[lineStart]) && isValid(arrow[lineEnd]); }

/// Whether both heads can be drawn.
inline bool areHeadsValid(const ArrowPoints& arrow) {
    for (unsigned i = startHead; i < arrow.size(); ++i)
        if (!isValid(arrow[i])) return false;
    return true;
}

} // namespace tesk::measurement::detail
