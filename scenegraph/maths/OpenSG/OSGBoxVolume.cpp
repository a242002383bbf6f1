#include <OpenSG/OSGBoxVolume.h>

#include <OpenSG/OSGLine.h>

namespace osg {

void BoxVolume::getCenter(Pnt3f& center) const { center = isEmpty() ? Pnt3f() : minimum + (maximum - minimum) * 0.5f; }

Real32 BoxVolume::getScalarVolume() const {
    if (isEmpty()) return 0.0f;
    const Vec3f size = maximum - minimum;
    return size[0] * size[1] * size[2];
}

void BoxVolume::setBounds(Real32 width, Real32 height, Real32 depth) {
    setBoundsByCenterAndSize(Pnt3f(), Vec3f(width, height, depth));
}

void BoxVolume::setBounds(Real32 minX, Real32 minY, Real32 minZ, Real32 maxX, Real32 maxY, Real32 maxZ) {
    setBounds(Pnt3f(minX, minY, minZ), Pnt3f(maxX, maxY, maxZ));
}

void BoxVolume::setBounds(const Pnt3f& newMinimum, const Pnt3f& newMaximum) {
    minimum = newMinimum;
    maximum = newMaximum;
    setEmpty(false);
}

void BoxVolume::setBoundsByCenterAndSize(const Pnt3f& center, const Vec3f& size) {
    setBounds(center - size * 0.5f, center + size * 0.5f);
}

void BoxVolume::extendBy(const Pnt3f& point) {
    if (isUntouchable()) return;
    if (isEmpty()) {
        setBounds(point, point);
        return;
    }
    for (UInt32 axis = 0; axis < 3; ++axis) {
        minimum[axis] = osgMin(point[axis], minimum[axis]);
        maximum[axis] = osgMax(point[axis], maximum[axis]);
    }
}

void BoxVolume::extendBy(const Volume& volume) {
    if (isUntouchable() || !volume.isValid()) return;
    const bool becomesAlwaysVisible = isAlwaysVisible() || volume.isAlwaysVisible();
    setAlwaysVisible(becomesAlwaysVisible);
    if (volume.isEmpty()) return;
    Pnt3f otherMinimum, otherMaximum;
    volume.getBounds(otherMinimum, otherMaximum);
    if (isEmpty()) {
        setBounds(otherMinimum, otherMaximum);
        setState(volume.getState());
        setAlwaysVisible(becomesAlwaysVisible);
        return;
    }
    for (UInt32 axis = 0; axis < 3; ++axis) {
        minimum[axis] = osgMin(otherMinimum[axis], minimum[axis]);
        maximum[axis] = osgMax(otherMaximum[axis], maximum[axis]);
    }
    if (volume.isInfinite()) setInfinite(true);
}

bool BoxVolume::intersect(const Pnt3f& point) const {
    if (isEmpty()) return false;
    if (isInfinite()) return true;
    for (UInt32 axis = 0; axis < 3; ++axis)
        if (!(minimum[axis] < point[axis] && point[axis] < maximum[axis])) return false;
    return true;
}

bool BoxVolume::intersect(const Line& line) const {
    Real32 enter, exit;
    return line.intersect(*this, enter, exit);
}

bool BoxVolume::intersect(const Line& line, Real32& enter, Real32& exit) const {
    return line.intersect(*this, enter, exit);
}

bool BoxVolume::intersect(const Volume& volume) const {
    if (isEmpty() || volume.isEmpty()) return false;
    if (isInfinite() || volume.isInfinite()) return true;
    Pnt3f otherMinimum, otherMaximum;
    volume.getBounds(otherMinimum, otherMaximum);
    for (UInt32 axis = 0; axis < 3; ++axis)
        if (!(minimum[axis] <= otherMaximum[axis] && otherMinimum[axis] <= maximum[axis])) return false;
    return true;
}

void BoxVolume::transform(const Matrix& matrix) {
    if (isEmpty() || isInfinite()) return;
    const Pnt3f oldMinimum = minimum;
    const Pnt3f oldMaximum = maximum;
    for (UInt32 row = 0; row < 3; ++row) {
        minimum[row] = maximum[row] = matrix[3][row];
        for (UInt32 column = 0; column < 3; ++column) {
            const Real32 a = matrix[column][row] * oldMinimum[column];
            const Real32 b = matrix[column][row] * oldMaximum[column];
            minimum[row] += a < b ? a : b;
            maximum[row] += a < b ? b : a;
        }
    }
}

} // namespace osg
