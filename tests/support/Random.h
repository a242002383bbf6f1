#pragma once

#include <measurement/geometry/Primitives.h>

#include <cstdint>
#include <random>

namespace tesk::test {

/// Kinds of input that queries and searches have to bear.
enum class Kind {
    ordinary,
    needle,     ///< two vertices almost equal
    tiny,       ///< about 1e-6 of the extent
    huge,       ///< about 1e6 times the extent
    collinear,  ///< vertices in a line, but for rounding
    coincident, ///< two or three vertices equal
    farOff,     ///< ordinary, moved by 1e5 in each coordinate
    lattice,    ///< whole coordinates, so that distances tie
    notFinite   ///< one coordinate NaN or infinite
};

constexpr Kind allKinds[] = {Kind::ordinary,   Kind::needle, Kind::tiny,    Kind::huge,     Kind::collinear,
                             Kind::coincident, Kind::farOff, Kind::lattice, Kind::notFinite};

/// Seeded random input, the same with every standard library.
class Random {
public:
    explicit Random(std::uint32_t seed) : generator(seed) {}

    /// At least `low`, less than `high`, but for rounding.
    float real(float low, float high);
    /// A whole number less than `count`.
    std::uint32_t below(std::uint32_t count);
    bool chance(float probability) { return real(0.0f, 1.0f) < probability; }

    /// Coordinates within [-extent, extent], also of all that follows.
    osg::Pnt3f point(float extent);
    osg::Vec3f vector(float extent);
    measurement::Segment segment(float extent);
    measurement::Triangle triangle(float extent);
    /// Any triangle of the kind; `extent` holds as the kind says.
    measurement::Triangle triangle(Kind kind, float extent);
    Kind kind() { return allKinds[below(sizeof allKinds / sizeof *allKinds)]; }

private:
    float notFinite();

    std::mt19937 generator;
};

} // namespace tesk::test
