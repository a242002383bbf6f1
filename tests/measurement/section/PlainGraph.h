#pragma once

#include <OpenSG/OSGVector.h>

#include <array>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

namespace tesk::test {

/// A place on the way from one numbered point to another, t from 0 to 1.
struct PlainPlace {
    int from = 0;
    int to = 0;
    double t = 0.0;

    PlainPlace turned() const { return {to, from, 1.0 - t}; }
};

/// Lines between numbered points, walked in double precision by the angles between them. A walk has no result where
/// rounding may decide how it goes on.
struct PlainGraph {
    std::vector<osg::Pnt3f> points;
    std::vector<std::pair<int, int>> lines;

    using Vector = std::array<double, 3>;

    Vector vector(int a, int b) const {
        const auto axis = [&](osg::UInt32 i) { return double(points[size_t(b)][i]) - double(points[size_t(a)][i]); };
        return {axis(0), axis(1), axis(2)};
    }
    double length(int a, int b) const {
        const Vector v = vector(a, b);
        return std::hypot(v[0], v[1], v[2]);
    }
    double angle(const Vector& a, const Vector& b) const {
        const double cross =
            std::hypot(a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]);
        return std::atan2(cross, a[0] * b[0] + a[1] * b[1] + a[2] * b[2]);
    }
    osg::Pnt3f position(const PlainPlace& p) const {
        return points[size_t(p.from)] + (points[size_t(p.to)] - points[size_t(p.from)]) * float(p.t);
    }

    /// The point after `to` with the smallest turn, -1 at a dead end.
    std::optional<int> next(int from, int to) const {
        int best = -1;
        double smallest = 10.0, margin = 10.0;
        for (const auto& [a, b] : lines) {
            const int other = a == to ? b : b == to ? a : from;
            if (other == from || other == best) continue;
            const double turn = angle(vector(from, to), vector(to, other));
            margin = std::min(std::fabs(turn - smallest), turn < smallest ? 10.0 : margin);
            if (turn < smallest) {
                smallest = turn;
                best = other;
            }
        }
        if (margin < 1e-3) return std::nullopt;
        return best;
    }

    /// Whether the place counts as a dead end already.
    std::optional<bool> isAtEnd(const PlainPlace& place) const {
        const auto after = next(place.from, place.to);
        if (!after || (*after < 0 && std::fabs(place.t - 0.95) < 1e-4)) return std::nullopt;
        return *after < 0 && place.t > 0.95;
    }

    /// Moves the place; false when it was at a dead end, or mayEnter(place) says so on a further edge.
    template <class Predicate>
    std::optional<bool> walk(PlainPlace& place, double distance, const Predicate& mayEnter) const {
        const auto atEnd = isAtEnd(place);
        if (!atEnd || *atEnd) return atEnd ? std::optional(false) : std::nullopt;
        for (;;) {
            const double edge = length(place.from, place.to), rest = (1.0 - place.t) * edge;
            if (std::fabs(rest - distance) < 1e-3) return std::nullopt;
            if (distance < rest) {
                place.t += distance / edge;
                return true;
            }
            distance -= rest;
            const auto after = next(place.from, place.to);
            if (!after) return std::nullopt;
            place = *after < 0 ? PlainPlace{place.from, place.to, 1.0} : PlainPlace{place.to, *after, 0.0};
            if (*after < 0) return true;
            if (!mayEnter(place)) return false;
        }
    }
};

} // namespace tesk::test
