#include <OpenSG/detail/Frustum.h>

namespace osg {

namespace {

Vec4f getRow(const Matrix& matrix, UInt32 row) {
    return Vec4f(matrix[0][row], matrix[1][row], matrix[2][row], matrix[3][row]);
}

} // namespace

// The planes from the rows of the matrix: Gribb and Hartmann, Fast Extraction of Viewing Frustum Planes, 2001.
Frustum::Frustum(const Matrix& worldToClip) {
    const Vec4f last = getRow(worldToClip, 3);
    for (UInt32 axis = 0; axis < 3; ++axis) {
        planes[2 * axis] = last + getRow(worldToClip, axis);
        planes[2 * axis + 1] = last - getRow(worldToClip, axis);
    }
}

bool Frustum::isVisible(const Volume& volume, PlaneSet& planesToTest) const {
    Pnt3f minimum, maximum;
    volume.getBounds(minimum, maximum);
    for (UInt32 index = 0; index < planeCount; ++index) {
        const PlaneSet bit = static_cast<PlaneSet>(1u << index);
        if (!(planesToTest & bit)) continue;
        const Vec4f& plane = planes[index];
        Real32 highest = plane[3], lowest = plane[3];
        for (UInt32 axis = 0; axis < 3; ++axis) {
            const bool rising = plane[axis] > 0.0f;
            highest += plane[axis] * (rising ? maximum : minimum)[axis];
            lowest += plane[axis] * (rising ? minimum : maximum)[axis];
        }
        // Both are false for NaN.
        if (highest < 0.0f) return false;
        if (lowest >= 0.0f) planesToTest = static_cast<PlaneSet>(planesToTest & ~bit);
    }
    return true;
}

} // namespace osg
