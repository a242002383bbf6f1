#pragma once

#include <measurement/acceleration/TriangleMesh.h>
#include <measurement/geometry/detail/Box.h>
#include <measurement/geometry/detail/Constants.h>

#include <cstring>

namespace tesk::measurement::acceleration {

/// The coordinates of a point side by side in one register; the fourth number means nothing.
typedef float Quad __attribute__((vector_size(16)));
typedef int QuadMask __attribute__((vector_size(16)));

/// The next position must be there to be read.
inline Quad toQuad(const osg::Pnt3f& position) {
    static_assert(sizeof(osg::Pnt3f) == 3 * sizeof(float));
    Quad result;
    std::memcpy(&result, static_cast<const void*>(&position), sizeof result);
    return result;
}

// As std::min() and std::max(): the first of equals, and the first when either is NaN.
inline Quad smaller(const Quad& a, const Quad& b) { return b < a ? b : a; }
inline Quad larger(const Quad& a, const Quad& b) { return a < b ? b : a; }

inline Quad absolute(const Quad& a) { return Quad(QuadMask(a) & (QuadMask{} + 0x7fffffff)); }
inline Quad positiveOrZero(const Quad& a) { return Quad(QuadMask(a) & (a > Quad{})); }
/// One bit for each axis, that of x lowest.
inline unsigned toBits(const QuadMask& mask) {
#ifdef __SSE2__
    return unsigned(__builtin_ia32_movmskps(Quad(mask))) & 7;
#else
    return unsigned(mask[0] & 1) | unsigned(mask[1] & 2) | unsigned(mask[2] & 4);
#endif
}
inline float sum(const Quad& a) { return a[0] + a[1] + a[2]; }

/// A detail::Box whose functions, all named like those of Box.h, give the same bits but for the sign of zero.
struct QuadBox {
    Quad min = Quad{} + detail::largestFloat;
    Quad max = Quad{} - detail::largestFloat;

    void grow(const QuadBox& box) {
        min = smaller(min, box.min);
        max = larger(max, box.max);
    }
};

inline QuadBox quadBoxOf(const Quad& p0, const Quad& p1, const Quad& p2) {
    return {smaller(smaller(p0, p1), p2), larger(larger(p0, p1), p2)};
}

inline QuadBox quadBoxOf(const TriangleMesh& mesh, std::uint32_t triangle) {
    return quadBoxOf(toQuad(mesh.corner(triangle, 0)), toQuad(mesh.corner(triangle, 1)),
                     toQuad(mesh.corner(triangle, 2)));
}

inline detail::DistanceBounds distanceBounds(const QuadBox& a, const QuadBox& b) {
    const Quad halfSizes = (b.max - b.min) * 0.5f + (a.max - a.min) * 0.5f;
    const Quad centreDistance = absolute((a.min + a.max) * 0.5f - (b.min + b.max) * 0.5f);
    const Quad gap = Quad(QuadMask(centreDistance - halfSizes) & (halfSizes < centreDistance));
    const Quad reach = larger(absolute(a.max - b.min), absolute(b.max - a.min));
    return {sum(gap * gap), sum(reach * reach)};
}

inline float squaredGap(const QuadBox& a, const QuadBox& b) {
    const Quad centres = absolute((b.min + b.max) - (a.min + a.max));
    const Quad sizes = (b.max - b.min) + (a.max - a.min);
    const Quad gap = positiveOrZero((centres - sizes) * 0.5f);
    return sum(gap * gap);
}

} // namespace tesk::measurement::acceleration
