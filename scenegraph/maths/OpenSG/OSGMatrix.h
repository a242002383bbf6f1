#pragma once

#include <OpenSG/OSGQuaternion.h>
#include <OpenSG/OSGSystemDef.h>
#include <OpenSG/OSGVector.h>

#include <ostream>

namespace osg {

/// A 4x4 matrix that transforms column vectors.
///
/// m[c] is column c and m[c][r] the element in row r; the translation is m[3]. getValues() gives
/// the 16 elements column by column. The default is the identity. Points are transformed with the
/// translation, vectors without it. Comparison allows a difference of Eps in each element.
template <class T> class TransformationMatrix {
public:
    using ValueType = T;
    using PointType = Point<T, 3>;
    using VectorType = Vector<T, 3>;
    using Vector4Type = Vector<T, 4>;
    using QuaternionType = QuaternionBase<T>;

    constexpr TransformationMatrix() { setIdentity(); }
    /// The arguments are rows: the first four are the first row.
    constexpr TransformationMatrix(T v00, T v10, T v20, T v30, T v01, T v11, T v21, T v31, T v02, T v12, T v22, T v32,
                                   T v03, T v13, T v23, T v33) {
        setValue(v00, v10, v20, v30, v01, v11, v21, v31, v02, v12, v22, v32, v03, v13, v23, v33);
    }

    static const TransformationMatrix& identity() {
        static const TransformationMatrix matrix;
        return matrix;
    }

    constexpr void setIdentity() { setValue(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1); }
    constexpr void setValue(const TransformationMatrix& other) { *this = other; }
    /// Reads 16 elements column by column, or row by row if not transposed.
    constexpr void setValue(const T* elements, bool transposed = true) {
        for (UInt32 column = 0; column < 4; ++column)
            for (UInt32 row = 0; row < 4; ++row)
                columns[column][row] = transposed ? elements[4 * column + row] : elements[4 * row + column];
    }
    /// The arguments are rows: the first four are the first row.
    constexpr void setValue(T v00, T v10, T v20, T v30, T v01, T v11, T v21, T v31, T v02, T v12, T v22, T v32, T v03,
                            T v13, T v23, T v33) {
        columns[0].setValues(v00, v01, v02, v03);
        columns[1].setValues(v10, v11, v12, v13);
        columns[2].setValues(v20, v21, v22, v23);
        columns[3].setValues(v30, v31, v32, v33);
    }
    /// The arguments are columns: the first four are the first column.
    constexpr void setValueTransposed(T v00, T v01, T v02, T v03, T v10, T v11, T v12, T v13, T v20, T v21, T v22,
                                      T v23, T v30, T v31, T v32, T v33) {
        setValue(v00, v10, v20, v30, v01, v11, v21, v31, v02, v12, v22, v32, v03, v13, v23, v33);
    }

    /// Writes the translation and nothing else.
    constexpr void setTranslate(T x, T y, T z) {
        columns[3][0] = x;
        columns[3][1] = y;
        columns[3][2] = z;
    }
    constexpr void setTranslate(const PointType& translation) {
        setTranslate(translation[0], translation[1], translation[2]);
    }
    /// Writes the diagonal of the upper 3x3 part and nothing else.
    constexpr void setScale(T x, T y, T z) {
        columns[0][0] = x;
        columns[1][1] = y;
        columns[2][2] = z;
    }
    constexpr void setScale(T scale) { setScale(scale, scale, scale); }
    constexpr void setScale(const VectorType& scale) { setScale(scale[0], scale[1], scale[2]); }
    /// Writes the upper 3x3 part, an earlier scale included, and nothing else.
    constexpr void setRotate(const QuaternionType& rotation);

    /// Replaces everything by T * C * R * SO * S * SO^-1 * C^-1, where C translates to the centre
    /// and SO turns to the axes of the scale. Factors that are not given are the identity.
    void setTransform(const VectorType& translation);
    void setTransform(const QuaternionType& rotation);
    void setTransform(const VectorType& translation, const QuaternionType& rotation);
    void setTransform(const VectorType& translation, const QuaternionType& rotation, const VectorType& scale);
    void setTransform(const VectorType& translation, const QuaternionType& rotation, const VectorType& scale,
                      const QuaternionType& scaleOrientation);
    void setTransform(const VectorType& translation, const QuaternionType& rotation, const VectorType& scale,
                      const QuaternionType& scaleOrientation, const VectorType& center);

    /// Takes the matrix apart into T * SO * S * SO^-1 * R, with the rotation *before* the scale.
    ///
    /// For a uniform scale these are the arguments of setTransform(). Otherwise the scale is along
    /// other axes: M = R * S with a quarter turn about z and s = (2, 3, 4) gives (3, 2, 4). A
    /// mirroring negates all three. A singular matrix, with a 3x3 determinant up to 1e-12, leaves
    /// `scale` untouched and gives two identity rotations.
    ///
    /// Method: polar decomposition by the eigenvectors of M * M^T (Shoemake and Duff, Matrix
    /// Animation and Polar Decomposition, 1992), found by Jacobi rotations.
    OSG_SYSTEMLIB_DLLMAPPING void getTransform(VectorType& translation, QuaternionType& rotation, VectorType& scale,
                                               QuaternionType& scaleOrientation) const;
    OSG_SYSTEMLIB_DLLMAPPING void getTransform(VectorType& translation, QuaternionType& rotation, VectorType& scale,
                                               QuaternionType& scaleOrientation, const VectorType& center) const;

    constexpr Vector4Type& operator[](UInt32 column) { return columns[column]; }
    constexpr const Vector4Type& operator[](UInt32 column) const { return columns[column]; }
    /// The 16 elements, column by column.
    T* getValues() { return columns[0].getValues(); }
    const T* getValues() const { return columns[0].getValues(); }

    /// this = this * other.
    void mult(const TransformationMatrix& other) { *this = product(*this, other); }
    /// this = other * this.
    void multLeft(const TransformationMatrix& other) { *this = product(other, *this); }

    /// The affine transform of a point: the last row is ignored. Source and result may be the same.
    constexpr void multMatrixPnt(const PointType& source, PointType& result) const {
        result.setValues(pointRow(source, 0), pointRow(source, 1), pointRow(source, 2));
    }
    constexpr void multMatrixPnt(PointType& point) const { multMatrixPnt(point, point); }
    constexpr void mult(const PointType& source, PointType& result) const { multMatrixPnt(source, result); }
    constexpr void mult(PointType& point) const { multMatrixPnt(point, point); }
    /// The projective transform of a point, divided by w; the origin when w is 0.
    constexpr void multFullMatrixPnt(const PointType& source, PointType& result) const {
        const T w = pointRow(source, 3);
        if (w == T(0)) {
            result.setNull();
            return;
        }
        multMatrixPnt(source, result);
        result *= T(1) / w;
    }
    constexpr void multFullMatrixPnt(PointType& point) const { multFullMatrixPnt(point, point); }
    /// The upper 3x3 part times the vector.
    constexpr void multMatrixVec(const VectorType& source, VectorType& result) const {
        result.setValues(vectorRow(source, 0), vectorRow(source, 1), vectorRow(source, 2));
    }
    constexpr void multMatrixVec(VectorType& vector) const { multMatrixVec(vector, vector); }
    constexpr void mult(const VectorType& source, VectorType& result) const { multMatrixVec(source, result); }
    /// The whole matrix times the vector.
    constexpr void multMatrixVec(const Vector4Type& source, Vector4Type& result) const { result = times(source); }

    T det() const;
    T det3() const;
    /// Each inverse returns whether there is one. Where the determinant is smaller than 1e-30, the
    /// result is the identity. The result may be the matrix itself.
    bool inverse(TransformationMatrix& result) const;
    bool invert() { return inverse(*this); }
    bool invertFrom(const TransformationMatrix& other) { return other.inverse(*this); }

    void transpose() { transposed(*this); }
    /// Always true.
    bool transposed(TransformationMatrix& result) const {
        const TransformationMatrix original(*this);
        result.setValue(original.getValues(), false);
        return true;
    }

    bool equals(const TransformationMatrix& other, T tolerance) const {
        for (UInt32 column = 0; column < 4; ++column)
            if (!columns[column].equals(other.columns[column], tolerance)) return false;
        return true;
    }
    bool operator==(const TransformationMatrix& other) const { return equals(other, static_cast<T>(Eps)); }
    bool operator!=(const TransformationMatrix& other) const { return !(*this == other); }

private:
    constexpr T vectorRow(const VectorType& v, UInt32 row) const {
        return v[0] * columns[0][row] + v[1] * columns[1][row] + v[2] * columns[2][row];
    }
    constexpr T pointRow(const PointType& p, UInt32 row) const {
        return p[0] * columns[0][row] + p[1] * columns[1][row] + p[2] * columns[2][row] + columns[3][row];
    }
    constexpr Vector4Type times(const Vector4Type& v) const {
        return columns[0] * v[0] + columns[1] * v[1] + columns[2] * v[2] + columns[3] * v[3];
    }
    static TransformationMatrix product(const TransformationMatrix& a, const TransformationMatrix& b) {
        TransformationMatrix result;
        for (UInt32 column = 0; column < 4; ++column) result.columns[column] = a.times(b.columns[column]);
        return result;
    }

    Vector4Type columns[4];
};

template <class T> constexpr void TransformationMatrix<T>::setRotate(const QuaternionType& rotation) {
    const T x = rotation.x(), y = rotation.y(), z = rotation.z(), w = rotation.w();
    columns[0][0] = T(1) - T(2) * (y * y + z * z);
    columns[0][1] = T(2) * (x * y + z * w);
    columns[0][2] = T(2) * (z * x - y * w);
    columns[1][0] = T(2) * (x * y - z * w);
    columns[1][1] = T(1) - T(2) * (z * z + x * x);
    columns[1][2] = T(2) * (y * z + x * w);
    columns[2][0] = T(2) * (z * x + y * w);
    columns[2][1] = T(2) * (y * z - x * w);
    columns[2][2] = T(1) - T(2) * (y * y + x * x);
}

template <class T> void TransformationMatrix<T>::setTransform(const VectorType& translation) {
    setIdentity();
    setTranslate(translation);
}

template <class T> void TransformationMatrix<T>::setTransform(const QuaternionType& rotation) {
    setIdentity();
    setRotate(rotation);
}

template <class T>
void TransformationMatrix<T>::setTransform(const VectorType& translation, const QuaternionType& rotation) {
    setTransform(rotation);
    setTranslate(translation);
}

template <class T>
void TransformationMatrix<T>::setTransform(const VectorType& translation, const QuaternionType& rotation,
                                           const VectorType& scale) {
    setTransform(translation, rotation);
    for (UInt32 column = 0; column < 3; ++column)
        for (UInt32 row = 0; row < 3; ++row) columns[column][row] *= scale[column];
}

template <class T>
void TransformationMatrix<T>::setTransform(const VectorType& translation, const QuaternionType& rotation,
                                           const VectorType& scale, const QuaternionType& scaleOrientation) {
    QuaternionType toScaleAxes(rotation);
    toScaleAxes.mult(scaleOrientation);
    setTransform(translation, toScaleAxes, scale);
    TransformationMatrix backward;
    backward.setTransform(scaleOrientation.inverse());
    mult(backward);
}

template <class T>
void TransformationMatrix<T>::setTransform(const VectorType& translation, const QuaternionType& rotation,
                                           const VectorType& scale, const QuaternionType& scaleOrientation,
                                           const VectorType& center) {
    setTransform(translation + center, rotation, scale, scaleOrientation);
    TransformationMatrix fromCenter;
    fromCenter.setTranslate(-center);
    mult(fromCenter);
}

/// The determinant of the 3x3 matrix with the columns a, b, c.
template <class T> constexpr T determinant3(T a0, T a1, T a2, T b0, T b1, T b2, T c0, T c1, T c2) {
    return a0 * b1 * c2 + a1 * b2 * c0 + a2 * b0 * c1 - a0 * b2 * c1 - a1 * b0 * c2 - a2 * b1 * c0;
}

template <class T> T TransformationMatrix<T>::det3() const {
    const Vector4Type &a = columns[0], &b = columns[1], &c = columns[2];
    return a[0] * b[1] * c[2] + a[1] * b[2] * c[0] + a[2] * b[0] * c[1] - a[2] * b[1] * c[0] - a[1] * b[0] * c[2] -
           a[0] * b[2] * c[1];
}

template <class T> T TransformationMatrix<T>::det() const {
    const Vector4Type &a = columns[0], &b = columns[1], &c = columns[2], &d = columns[3];
    return a[0] * determinant3(b[1], b[2], b[3], c[1], c[2], c[3], d[1], d[2], d[3]) -
           b[0] * determinant3(a[1], a[2], a[3], c[1], c[2], c[3], d[1], d[2], d[3]) +
           c[0] * determinant3(a[1], a[2], a[3], b[1], b[2], b[3], d[1], d[2], d[3]) -
           d[0] * determinant3(a[1], a[2], a[3], b[1], b[2], b[3], c[1], c[2], c[3]);
}

/// The adjoint divided by the determinant (Carling, Matrix Inversion, Graphics Gems, 1990).
template <class T> bool TransformationMatrix<T>::inverse(TransformationMatrix& result) const {
    const T determinant = det();
    if (osgabs(determinant) < T(1e-30)) {
        result.setIdentity();
        return false;
    }
    const T factor = T(1) / determinant;
    const TransformationMatrix original(*this);
    for (UInt32 row = 0; row < 4; ++row) {
        // The rows that remain when this one is struck out.
        const UInt32 i = row > 0 ? 0 : 1;
        const UInt32 j = row > 1 ? 1 : 2;
        const UInt32 k = row > 2 ? 2 : 3;
        for (UInt32 column = 0; column < 4; ++column) {
            const Vector4Type& a = original[column > 0 ? 0 : 1];
            const Vector4Type& b = original[column > 1 ? 1 : 2];
            const Vector4Type& c = original[column > 2 ? 2 : 3];
            const T minor = determinant3(a[i], a[j], a[k], b[i], b[j], b[k], c[i], c[j], c[k]);
            result[row][column] = ((row + column) % 2 == 0 ? minor : -minor) * factor;
        }
    }
    return true;
}

/// Row by row, a line each.
template <class T> std::ostream& operator<<(std::ostream& stream, const TransformationMatrix<T>& matrix) {
    for (UInt32 row = 0; row < 4; ++row)
        stream << matrix[0][row] << ' ' << matrix[1][row] << ' ' << matrix[2][row] << ' ' << matrix[3][row] << '\n';
    return stream;
}

using Matrix = TransformationMatrix<Real32>;
using Matrix4f = TransformationMatrix<Real32>;

} // namespace osg
