#include <support/BruteForce.h>

#include <algorithm>
#include <utility>

namespace tesk::test {

using measurement::Segment;
using measurement::Triangle;

namespace {

struct Place {
    double x, y, z;
};

Place place(const osg::Pnt3f& point) { return {point[0], point[1], point[2]}; }

Place between(const Place& a, const Place& b, double t) {
    return {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y), a.z + t * (b.z - a.z)};
}

double squaredGap(const Place& a, const Place& b) {
    return (a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y) + (a.z - b.z) * (a.z - b.z);
}

/// The smallest value of a convex function over [0, 1], by golden section.
template <class Function> double minimum(Function function) {
    const double ratio = 0.6180339887498949;
    double low = 0.0, high = 1.0;
    double left = high - ratio, right = low + ratio;
    double atLeft = function(left), atRight = function(right);
    double smallest = std::min(function(0.0), function(1.0));
    for (int step = 0; step < 30; ++step) {
        smallest = std::min({smallest, atLeft, atRight});
        if (atLeft < atRight) {
            high = right;
            right = left;
            atRight = atLeft;
            left = high - ratio * (high - low);
            atLeft = function(left);
        } else {
            low = left;
            left = right;
            atLeft = atRight;
            right = low + ratio * (high - low);
            atRight = function(right);
        }
    }
    return smallest;
}

double segmentToPlace(const Place& start, const Place& end, const Place& target) {
    return minimum([&](double t) { return squaredGap(between(start, end, t), target); });
}

/// Sweeps the triangle with the segments from p0-p1 to p0-p2 that are parallel to p1-p2.
double triangleToPlace(const Triangle& triangle, const Place& target) {
    const Place p0 = place(triangle.p0), p1 = place(triangle.p1), p2 = place(triangle.p2);
    return minimum([&](double t) { return segmentToPlace(between(p0, p1, t), between(p0, p2, t), target); });
}

} // namespace

double squaredDistance(const osg::Pnt3f& a, const osg::Pnt3f& b) { return squaredGap(place(a), place(b)); }

double squaredDistance(const Segment& segment, const osg::Pnt3f& point) {
    return segmentToPlace(place(segment.start), place(segment.end), place(point));
}

double squaredDistance(const Triangle& triangle, const osg::Pnt3f& point) {
    return triangleToPlace(triangle, place(point));
}

double squaredDistance(const Segment& segment, const Triangle& triangle) {
    const Place start = place(segment.start), end = place(segment.end);
    return minimum([&](double t) { return triangleToPlace(triangle, between(start, end, t)); });
}

double squaredDistance(const Triangle& a, const Triangle& b) {
    return std::min({squaredDistance(Segment{a.p0, a.p1}, b), squaredDistance(Segment{a.p1, a.p2}, b),
                     squaredDistance(Segment{a.p2, a.p0}, b), squaredDistance(Segment{b.p0, b.p1}, a),
                     squaredDistance(Segment{b.p1, b.p2}, a), squaredDistance(Segment{b.p2, b.p0}, a)});
}

std::list<Segment> cut(const std::vector<Triangle>& triangles, const osg::Vec4f& plane) {
    const auto height = [&](const osg::Pnt3f& point) {
        const auto term = [&](int axis) { return double(plane[axis]) * double(point[axis]); };
        return term(0) + term(1) + term(2) + double(plane[3]);
    };
    std::list<Segment> segments;
    for (const auto& [p0, p1, p2] : triangles) {
        std::vector<osg::Pnt3f> crossings;
        for (const auto& [from, to] : {std::pair{p0, p1}, {p0, p2}, {p1, p2}}) {
            const double behind = height(from), ahead = height(to);
            const auto t = static_cast<float>(behind / (behind - ahead));
            if (behind * ahead < 0) crossings.push_back(from + (to - from) * t);
        }
        if (!crossings.empty()) segments.push_back({crossings[0], crossings[1]});
    }
    return segments;
}

} // namespace tesk::test
