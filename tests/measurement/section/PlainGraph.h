#pragma once

#include <support/Random.h>

#include <cmath>
#include <map>
#include <optional>
#include <vector>

namespace tesk::test {

/// A place between two numbered points.
struct PlainPlace {
    int from, to;
    double t;
    PlainPlace turned() const { return {to, from, 1.0 - t}; }
};

/// Lines between numbered points, walked by adding up lengths.
struct PlainGraph {
    std::vector<osg::Pnt3f> points;
    std::vector<std::pair<int, int>> lines{{0, 5}};

    explicit PlainGraph(Random& random) {
        for (int i = 0; i < 6; ++i) points.push_back(random.point(5.0f));
        for (int i = 6; i < 36; ++i)
            if (i % 6 < i / 6 && random.chance(0.4f) && i != 30) lines.emplace_back(i / 6, i % 6);
    }
    osg::Pnt3f at(const PlainPlace& p) const { return points[p.from] + (points[p.to] - points[p.from]) * float(p.t); }

    /// Where a walk goes on: -1 at a dead end.
    int next(const PlainPlace& p) const {
        // Of unit vectors, those most nearly alike have the longest sum.
        const auto unit = [&](int a, int b) { return (points[b] - points[a]) * (1.0f / points[a].dist(points[b])); };
        std::map<float, int> ways{{-1.0f, -1}};
        for (const auto& [a, b] : lines) {
            const int other = a == p.to ? b : b == p.to ? a : p.from;
            if (other != p.from) ways[(unit(p.from, p.to) + unit(p.to, other)).length()] = other;
        }
        return ways.rbegin()->second;
    }

    /// False at a dead end, or where mayEnter(place) says so. Nothing where rounding may decide how far it gets.
    template <class Predicate> std::optional<bool> walk(PlainPlace& p, double distance, Predicate mayEnter) const {
        if (p.t >= 0.95 && next(p) < 0) return false;
        for (;;) {
            const double length = points[p.from].dist(points[p.to]), rest = (1.0 - p.t) * length;
            if (std::abs(rest - distance) < 1e-3) return std::nullopt;
            p.t = distance < rest ? p.t + distance / length : 1.0;
            if (distance < rest || next(p) < 0) return true;
            distance -= rest;
            p = {p.to, next(p), 0.0};
            if (!mayEnter(p)) return false;
        }
    }
};

} // namespace tesk::test
