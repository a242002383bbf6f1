#pragma once

#include <measurement/acceleration/vector/QuadBox.h>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace tesk::measurement::acceleration {

/// What decides on which side of a cut a triangle lies.
struct TriangleExtent {
    QuadBox box;
    Quad centroid;

    TriangleExtent(const TriangleMesh& mesh, std::uint32_t triangle) {
        const Quad p0 = toQuad(mesh.corner(triangle, 0)), p1 = toQuad(mesh.corner(triangle, 1)),
                   p2 = toQuad(mesh.corner(triangle, 2));
        box = quadBoxOf(p0, p1, p2);
        centroid = (p0 + p1 + p2) * 0.33333334f;
    }
};

/// A box that is left unset at first, so that room for many costs nothing.
struct StoredBox {
    Quad min, max;

    StoredBox() {}
    StoredBox(const QuadBox& box) : min(box.min), max(box.max) {}
    operator QuadBox() const { return {min, max}; }
};

/// Some triangles that follow each other in a mesh, by the extremes of what decides on which side of a cut each lies.
struct TriangleRun {
    static constexpr std::uint32_t mostTriangles = 16;

    StoredBox box;
    Quad largestExtent;
    /// Not a number if any centroid is none, whereas largestCentroid passes over those.
    Quad leastCentroid, largestCentroid;

    void assign(const TriangleMesh& mesh, std::uint32_t number) {
        constexpr Quad infinity = Quad{} + std::numeric_limits<float>::infinity();
        QuadBox all;
        largestExtent = largestCentroid = -infinity;
        leastCentroid = infinity;
        QuadMask areNumbers = QuadMask{} - 1;
        const std::uint32_t end = endOf(mesh, number);
        for (std::uint32_t i = beginOf(number); i < end; ++i) {
            const TriangleExtent triangle(mesh, i);
            all.grow(triangle.box);
            largestExtent = larger(largestExtent, triangle.box.max - triangle.box.min);
            leastCentroid = smaller(leastCentroid, triangle.centroid);
            largestCentroid = larger(largestCentroid, triangle.centroid);
            areNumbers &= triangle.centroid == triangle.centroid;
        }
        leastCentroid = areNumbers ? leastCentroid : infinity - infinity;
        box = all;
    }

    static std::uint32_t countOf(const TriangleMesh& mesh) {
        return (mesh.triangleCount + mostTriangles - 1) / mostTriangles;
    }
    static std::uint32_t beginOf(std::uint32_t number) { return number * mostTriangles; }
    static std::uint32_t endOf(const TriangleMesh& mesh, std::uint32_t number) {
        return std::min(beginOf(number + 1), mesh.triangleCount);
    }
    static std::uint32_t sizeOf(const TriangleMesh& mesh, std::uint32_t number) {
        return endOf(mesh, number) - beginOf(number);
    }
};

} // namespace tesk::measurement::acceleration
