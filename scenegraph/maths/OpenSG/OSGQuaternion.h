#pragma once

#include <OpenSG/OSGVector.h>

namespace osg {

template <class T> class TransformationMatrix;

/// A rotation as a unit quaternion, components in the order x, y, z, w.
///
/// Products have the order of matrix products: after a.mult(b), a turns by b first. Comparison
/// allows a difference of Eps in each component; q and -q, although the same rotation, differ.
template <class T> class QuaternionBase {
public:
    using ValueType = T;
    using VectorType = Vector<T, 3>;
    using MatrixType = TransformationMatrix<T>;

    constexpr QuaternionBase() = default;
    /// The angle is in radians.
    QuaternionBase(const VectorType& axis, T angle) { setValueAsAxisRad(axis, angle); }
    QuaternionBase(const VectorType& from, const VectorType& to) { setValue(from, to); }
    explicit QuaternionBase(const MatrixType& matrix) { setValue(matrix); }

    static const QuaternionBase& identity() {
        static const QuaternionBase quaternion;
        return quaternion;
    }

    void setIdentity() { *this = QuaternionBase(); }
    /// Taken as they stand, without normalisation.
    void setValueAsQuat(T x, T y, T z, T w) { values.setValues(x, y, z, w); }
    /// The axis may have any length; one shorter than Eps gives the identity.
    void setValueAsAxisRad(const VectorType& axis, T angle);
    void setValueAsAxisRad(T x, T y, T z, T angle) { setValueAsAxisRad(VectorType(x, y, z), angle); }
    void setValueAsAxisDeg(const VectorType& axis, T angle) { setValueAsAxisRad(axis, osgdegree2rad(angle)); }
    void setValueAsAxisDeg(T x, T y, T z, T angle) { setValueAsAxisDeg(VectorType(x, y, z), angle); }
    /// The rotation that turns the direction of `from` into that of `to`, of any lengths.
    ///
    /// Directions whose cosine is above 0.99999 give the identity, below -0.99999 a half turn
    /// about from x X, or from x Y where that vanishes. A zero vector gives (0, 0, 0, sqrt(0.5)),
    /// not a unit quaternion, but the identity as a matrix.
    void setValue(VectorType from, VectorType to);
    /// The rotation of a matrix whose upper 3x3 part is a pure rotation.
    void setValue(const MatrixType& matrix);

    constexpr T x() const { return values[0]; }
    constexpr T y() const { return values[1]; }
    constexpr T z() const { return values[2]; }
    constexpr T w() const { return values[3]; }
    constexpr T& operator[](UInt32 index) { return values[index]; }
    constexpr const T& operator[](UInt32 index) const { return values[index]; }
    constexpr const T* getValues() const { return values.getValues(); }

    /// Axis of unit length and angle of 0 to 2 pi; (0, 0, 1) and 0 for the identity.
    void getValueAsAxisRad(VectorType& axis, T& angle) const;
    void getValueAsAxisDeg(VectorType& axis, T& angle) const {
        getValueAsAxisRad(axis, angle);
        angle = osgrad2degree(angle);
    }
    /// Replaces the whole matrix.
    void getValue(MatrixType& matrix) const;

    T length() const { return values.length(); }
    /// Shorter than Eps, it stays as it is.
    void normalize() { values.normalize(); }
    /// To the conjugate, which is the inverse of a unit quaternion.
    void invert() { setValueAsQuat(-x(), -y(), -z(), w()); }
    QuaternionBase inverse() const {
        QuaternionBase result(*this);
        result.invert();
        return result;
    }

    /// this = this * other, normalised.
    void mult(const QuaternionBase& other) { setProduct(*this, other); }
    /// this = other * this, normalised.
    void multLeft(const QuaternionBase& other) { setProduct(other, *this); }
    void operator*=(const QuaternionBase& other) { mult(other); }
    /// Source and result may be the same object.
    void multVec(const VectorType& source, VectorType& result) const;

    constexpr bool equals(const QuaternionBase& other, T tolerance) const {
        return values.equals(other.values, tolerance);
    }
    constexpr bool operator==(const QuaternionBase& other) const { return values == other.values; }
    constexpr bool operator!=(const QuaternionBase& other) const { return !(*this == other); }

private:
    void setProduct(const QuaternionBase& a, const QuaternionBase& b);

    Vector<T, 4> values{T(0), T(0), T(0), T(1)};
};

template <class T> void QuaternionBase<T>::setValueAsAxisRad(const VectorType& axis, T angle) {
    const T axisLength = axis.length();
    if (axisLength < static_cast<T>(Eps)) {
        setIdentity();
        return;
    }
    const T factor = osgsin(angle * T(0.5)) / axisLength;
    setValueAsQuat(axis[0] * factor, axis[1] * factor, axis[2] * factor, osgcos(angle * T(0.5)));
}

template <class T> void QuaternionBase<T>::setValue(VectorType from, VectorType to) {
    from.normalize();
    to.normalize();
    const T cosine = from.dot(to);
    if (cosine > T(0.99999)) {
        setIdentity();
        return;
    }
    if (cosine < T(-0.99999)) {
        VectorType axis = from.cross(VectorType(1, 0, 0));
        if (axis.length() < T(0.00001)) axis = from.cross(VectorType(0, 1, 0));
        setValueAsAxisRad(axis, static_cast<T>(Pi));
        return;
    }
    VectorType axis = from.cross(to);
    axis.normalize();
    axis *= osgsqrt(T(0.5) * (T(1) - cosine));
    setValueAsQuat(axis[0], axis[1], axis[2], osgsqrt(T(0.5) * (T(1) + cosine)));
}

/// Starts from the largest of the four components, so that no division loses digits (Shoemake,
/// Animating Rotation with Quaternion Curves, 1985).
template <class T> void QuaternionBase<T>::setValue(const MatrixType& matrix) {
    const T trace = matrix[0][0] + matrix[1][1] + matrix[2][2];
    if (trace > T(0)) {
        T root = osgsqrt(trace + T(1));
        values[3] = T(0.5) * root;
        root = T(0.5) / root;
        values[0] = (matrix[1][2] - matrix[2][1]) * root;
        values[1] = (matrix[2][0] - matrix[0][2]) * root;
        values[2] = (matrix[0][1] - matrix[1][0]) * root;
        return;
    }
    UInt32 i = matrix[1][1] > matrix[0][0] ? 1 : 0;
    if (matrix[2][2] > matrix[i][i]) i = 2;
    const UInt32 j = (i + 1) % 3;
    const UInt32 k = (j + 1) % 3;
    T root = osgsqrt(matrix[i][i] - (matrix[j][j] + matrix[k][k]) + T(1));
    values[i] = T(0.5) * root;
    root = T(0.5) / root;
    values[3] = (matrix[j][k] - matrix[k][j]) * root;
    values[j] = (matrix[i][j] + matrix[j][i]) * root;
    values[k] = (matrix[i][k] + matrix[k][i]) * root;
}

template <class T> void QuaternionBase<T>::getValueAsAxisRad(VectorType& axis, T& angle) const {
    axis.setValues(x(), y(), z());
    const T axisLength = axis.length();
    if (axisLength < static_cast<T>(Eps)) {
        axis.setValues(0, 0, 1);
        angle = T(0);
        return;
    }
    axis *= T(1) / axisLength;
    angle = T(2) * osgacos(osgClamp(T(-1), w(), T(1)));
}

template <class T> void QuaternionBase<T>::getValue(MatrixType& matrix) const {
    matrix.setIdentity();
    matrix.setRotate(*this);
}

template <class T> void QuaternionBase<T>::multVec(const VectorType& source, VectorType& result) const {
    const VectorType axis(x(), y(), z());
    const VectorType turned = axis.cross(source) * T(2);
    result = source + turned * w() + axis.cross(turned);
}

template <class T> void QuaternionBase<T>::setProduct(const QuaternionBase& a, const QuaternionBase& b) {
    const Vector<T, 4> product(a.w() * b.x() + a.x() * b.w() + a.y() * b.z() - a.z() * b.y(),
                               a.w() * b.y() + a.y() * b.w() + a.z() * b.x() - a.x() * b.z(),
                               a.w() * b.z() + a.z() * b.w() + a.x() * b.y() - a.y() * b.x(),
                               a.w() * b.w() - a.x() * b.x() - a.y() * b.y() - a.z() * b.z());
    values = product;
    normalize();
}

using Quaternion = QuaternionBase<Real32>;

} // namespace osg
