#pragma once

#include <OpenSG/OSGVector.h>

#include <cmath>

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
    void getValueAsAxisRad(VectorType& axis, T& angle) const {
        getValueAsAxisDeg(axis, angle);
        angle = osgdegree2rad(angle);
    }
    /// The same with the angle in degrees.
    void getValueAsAxisDeg(VectorType& axis, T& angle) const;
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
    VectorType axis = from.cross(to);
    from.normalize();
    to.normalize();
    const T cosine = from.dot(to);
    if (cosine > T(0.99999)) {
        setIdentity();
        return;
    }
    if (cosine < T(-0.99999)) {
        axis = from.cross(VectorType(1, 0, 0));
        if (axis.length() < T(0.00001)) axis = from.cross(VectorType(0, 1, 0));
        axis.normalize();
        setValueAsAxisRad(axis, static_cast<T>(Pi));
        return;
    }
    const double wideCosine = static_cast<double>(cosine);
    axis.normalize();
    axis *= static_cast<T>(std::sqrt(0.5 * (1.0 - wideCosine)));
    setValueAsQuat(axis[0], axis[1], axis[2], static_cast<T>(std::sqrt(0.5 * (1.0 + wideCosine))));
}

/// Starts from the largest of the four components, so that no division loses digits (Shoemake,
/// Animating Rotation with Quaternion Curves, 1985).
template <class T> void QuaternionBase<T>::setValue(const MatrixType& matrix) {
    // In double precision, rounded once for each component.
    const auto scaled = [](T difference, double factor) {
        return static_cast<T>(static_cast<double>(difference) * factor);
    };
    const T trace = matrix[0][0] + matrix[1][1] + matrix[2][2];
    if (trace > T(0)) {
        const double root = std::sqrt(static_cast<double>(trace) + 1.0);
        const double factor = 0.5 / root;
        setValueAsQuat(scaled(matrix[1][2] - matrix[2][1], factor), scaled(matrix[2][0] - matrix[0][2], factor),
                       scaled(matrix[0][1] - matrix[1][0], factor), static_cast<T>(0.5 * root));
        return;
    }
    UInt32 i = matrix[1][1] > matrix[0][0] ? 1 : 0;
    if (matrix[2][2] > matrix[i][i]) i = 2;
    const UInt32 j = (i + 1) % 3;
    const UInt32 k = (j + 1) % 3;
    const double root = std::sqrt(static_cast<double>(matrix[i][i] - (matrix[j][j] + matrix[k][k])) + 1.0);
    const double factor = 0.5 / root;
    values[i] = static_cast<T>(0.5 * root);
    values[3] = scaled(matrix[j][k] - matrix[k][j], factor);
    values[j] = scaled(matrix[i][j] + matrix[j][i], factor);
    values[k] = scaled(matrix[i][k] + matrix[k][i], factor);
}

template <class T> void QuaternionBase<T>::getValueAsAxisDeg(VectorType& axis, T& angle) const {
    axis.setValues(x(), y(), z());
    const T axisLength = axis.length();
    if (axisLength < static_cast<T>(Eps)) {
        axis.setValues(0, 0, 1);
        angle = T(0);
        return;
    }
    axis *= T(1) / axisLength;
    angle = osgrad2degree(T(2) * osgacos(osgClamp(T(-1), w(), T(1))));
}

template <class T> void QuaternionBase<T>::getValue(MatrixType& matrix) const {
    matrix.setIdentity();
    matrix.setRotate(*this);
}

template <class T> void QuaternionBase<T>::multVec(const VectorType& source, VectorType& result) const {
    const T qx = x(), qy = y(), qz = z(), qw = w();
    const T xx = qx * qx, yy = qy * qy, zz = qz * qz, ww = qw * qw;
    const T vx = source[0], vy = source[1], vz = source[2];
    result.setValues((ww + xx - yy - zz) * vx + T(2) * ((qx * qy - qw * qz) * vy + (qx * qz + qw * qy) * vz),
                     (ww - xx + yy - zz) * vy + T(2) * ((qy * qz - qw * qx) * vz + (qx * qy + qw * qz) * vx),
                     (ww - xx - yy + zz) * vz + T(2) * ((qx * qz - qw * qy) * vx + (qy * qz + qw * qx) * vy));
}

/// With eight multiplications (Howell and Lafon, The Complexity of the Quaternion Product, 1975).
template <class T> void QuaternionBase<T>::setProduct(const QuaternionBase& a, const QuaternionBase& b) {
    const T productW = (a.z() - a.y()) * (b.y() - b.z());
    const T productX = (a.w() + a.x()) * (b.w() + b.x());
    const T productY = (a.w() - a.x()) * (b.y() + b.z());
    const T productZ = (a.y() + a.z()) * (b.w() - b.x());
    const T excessW = (a.z() + a.x()) * (b.x() + b.y());
    const T excessY = (a.w() - a.y()) * (b.w() + b.z());
    const T excessZ = (a.w() + a.y()) * (b.w() - b.z());
    const T excessX = excessW + excessZ + excessY;
    const T common = T(0.5) * ((a.z() - a.x()) * (b.x() - b.y()) + excessX);
    setValueAsQuat(productX + common - excessX, productY + common - excessY, productZ + common - excessZ,
                   productW + common - excessW);
    normalize();
}

using Quaternion = QuaternionBase<Real32>;

} // namespace osg
