#include <OpenSG/OSGTriangleIterator.h>

namespace osg {

bool TriangleIterator::findOther() {
    switch (getType()) {
    case GL_TRIANGLE_STRIP:
    case GL_QUAD_STRIP:
        return findInStrip();
    case GL_TRIANGLE_FAN:
    case GL_POLYGON:
        return findInFan();
    case GL_QUADS:
        return findInQuads();
    default:
        return false;
    }
}

bool TriangleIterator::findInStrip() {
    while (nextCorner + 2 < usableLength) {
        const UInt32 first = nextCorner++;
        const UInt32 odd = first % 2;
        // Every other triangle is turned round, so that all have the strip's orientation.
        if (accept({first + odd, first + 1 - odd, first + 2}) && !(first > 0 && isDegenerate())) return true;
    }
    return false;
}

bool TriangleIterator::findInFan() {
    while (nextCorner + 2 < usableLength) {
        const UInt32 second = ++nextCorner;
        if (accept({0, second, second + 1})) return true;
    }
    return false;
}

bool TriangleIterator::findInQuads() {
    while (nextCorner < usableLength) {
        const UInt32 quad = nextCorner - nextCorner % 4;
        const bool secondHalf = nextCorner > quad;
        nextCorner += 2;
        // The first half may read beyond the primitive's own vertices, the second may not.
        if (secondHalf && quad + 3 >= usableLength) return false;
        if (accept({quad, quad + 1 + secondHalf, quad + 2 + secondHalf})) return true;
    }
    return false;
}

} // namespace osg
