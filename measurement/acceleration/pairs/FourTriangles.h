#pragma once

#include <measurement/acceleration/vector/QuadBox.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace tesk::measurement::acceleration {

/// Four triangles, coordinate by coordinate.
struct FourTriangles {
    struct Points {
        Quad x, y, z;

        Points operator-(const Points& other) const { return {x - other.x, y - other.y, z - other.z}; }
        friend Quad dot(const Points& a, const Points& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
        friend Points cross(const Points& a, const Points& b) {
            return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
        }
    };

    Points corners[3];

    /// Of fewer than four the last one counts again.
    template <class NumberOf> FourTriangles(const TriangleMesh& mesh, std::uint32_t count, NumberOf numberOf) {
        const std::uint32_t last = std::min(count, 4u) - 1;
        const std::uint32_t numbers[] = {numberOf(0), numberOf(std::min(1u, last)), numberOf(std::min(2u, last)),
                                         numberOf(last)};
        for (std::size_t which = 0; which < 3; ++which) {
            const Quad a = toQuad(mesh.corner(numbers[0], which)), b = toQuad(mesh.corner(numbers[1], which)),
                       c = toQuad(mesh.corner(numbers[2], which)), d = toQuad(mesh.corner(numbers[3], which));
            const Quad lowAB = __builtin_shufflevector(a, b, 0, 4, 1, 5),
                       lowCD = __builtin_shufflevector(c, d, 0, 4, 1, 5);
            const Quad highAB = __builtin_shufflevector(a, b, 2, 6, 3, 7),
                       highCD = __builtin_shufflevector(c, d, 2, 6, 3, 7);
            corners[which] = {__builtin_shufflevector(lowAB, lowCD, 0, 1, 4, 5),
                              __builtin_shufflevector(lowAB, lowCD, 2, 3, 6, 7),
                              __builtin_shufflevector(highAB, highCD, 0, 1, 4, 5)};
        }
    }

    /// The squared sines of the angles at the first corners; 0 for wild triangles, those with a smaller one included.
    ///
    /// mayBeSegments: whether those with an edge of length zero are not wild; 1 for such.
    Quad calcSquaredSines(bool mayBeSegments, float leastSine) const {
        // Comparisons that are false for NaN.
        constexpr float leastSquaredLength = 1e-15f;
        const Points edge0 = corners[1] - corners[0], edge1 = corners[2] - corners[0], edge2 = corners[2] - corners[1];
        const Quad a00 = dot(edge0, edge0), a11 = dot(edge1, edge1), a22 = dot(edge2, edge2);
        const Points normal = cross(edge0, edge1);
        const Quad squaredSine = dot(normal, normal) / (a00 * a11);
        const QuadMask isSegment = (QuadMask{} - int(mayBeSegments)) & ((a00 == 0.0f) | (a22 == 0.0f));
        const QuadMask isSound = (a00 > leastSquaredLength) & (squaredSine >= leastSine * leastSine);
        const QuadMask isTame = isOrdinary() & (a11 > leastSquaredLength) & (isSegment | isSound);
        return Quad(isTame & QuadMask(isSegment ? Quad{} + 1.0f : squaredSine));
    }

    /// The squared gaps between their boxes and another.
    Quad squaredGapsTo(const QuadBox& other) const {
        const auto gapOf = [&](const Quad& a, const Quad& b, const Quad& c, int axis) {
            const Quad low = smaller(smaller(a, b), c), high = larger(larger(a, b), c);
            return positiveOrZero(larger(low - other.max[axis], other.min[axis] - high));
        };
        const auto& [p0, p1, p2] = corners;
        const Quad x = gapOf(p0.x, p1.x, p2.x, 0), y = gapOf(p0.y, p1.y, p2.y, 1), z = gapOf(p0.z, p1.z, p2.z, 2);
        return x * x + y * y + z * z;
    }

private:
    /// Whether no coordinate is far from finite.
    QuadMask isOrdinary() const {
        constexpr float largestCoordinate = 1e15f;
        QuadMask result = QuadMask{} - 1;
        for (const Points& corner : corners)
            result &= (absolute(corner.x) < largestCoordinate) & (absolute(corner.y) < largestCoordinate) &
                      (absolute(corner.z) < largestCoordinate);
        return result;
    }
};

} // namespace tesk::measurement::acceleration
