#include <OpenSG/OSGMatrix.h>

namespace osg {

namespace {

/// One Jacobi rotation in the plane of two axes: makes symmetric[p][q] zero and turns the columns
/// of `vectors` along (Golub and Van Loan, Matrix Computations, 8.5).
void rotateToZero(Matrix& symmetric, Matrix& vectors, UInt32 p, UInt32 q) {
    if (symmetric[p][q] == 0.0f) return;
    const Real32 theta = (symmetric[q][q] - symmetric[p][p]) / (2.0f * symmetric[p][q]);
    const Real32 tangent = (theta < 0.0f ? -1.0f : 1.0f) / (osgabs(theta) + osgsqrt(theta * theta + 1.0f));
    const Real32 cosine = 1.0f / osgsqrt(tangent * tangent + 1.0f);
    const Real32 sine = tangent * cosine;
    Matrix rotation;
    rotation[p][p] = rotation[q][q] = cosine;
    rotation[q][p] = sine;
    rotation[p][q] = -sine;
    vectors.mult(rotation);
    symmetric.mult(rotation);
    rotation.transpose();
    symmetric.multLeft(rotation);
    symmetric[p][q] = symmetric[q][p] = 0.0f;
}

/// Turns a symmetric 3x3 part into a diagonal one; returns the eigenvectors as columns.
Matrix diagonalize(Matrix& symmetric) {
    // Each sweep squares the error; single precision needs no more than four or five.
    const int sweeps = 10;
    Matrix vectors;
    for (int sweep = 0; sweep < sweeps; ++sweep) {
        rotateToZero(symmetric, vectors, 0, 1);
        rotateToZero(symmetric, vectors, 0, 2);
        rotateToZero(symmetric, vectors, 1, 2);
    }
    return vectors;
}

} // namespace

template <class T>
void TransformationMatrix<T>::getTransform(VectorType& translation, QuaternionType& rotation, VectorType& scale,
                                           QuaternionType& scaleOrientation) const {
    translation = columns[3];
    rotation.setIdentity();
    scaleOrientation.setIdentity();
    const T determinant = det3();
    if (!(osgabs(determinant) > T(1e-12))) return;

    TransformationMatrix linear(*this);
    linear.columns[3].setValues(0, 0, 0, 1);
    for (UInt32 column = 0; column < 3; ++column) linear.columns[column][3] = T(0);
    TransformationMatrix linearTransposed, squaredScale(linear);
    linear.transposed(linearTransposed);
    squaredScale.mult(linearTransposed);

    const TransformationMatrix orientation = diagonalize(squaredScale);
    TransformationMatrix inverseScale(orientation), backward;
    orientation.transposed(backward);
    for (UInt32 axis = 0; axis < 3; ++axis) {
        const T length = osgsqrt(squaredScale[axis][axis]);
        scale[axis] = determinant < T(0) ? -length : length;
        inverseScale.columns[axis] *= T(1) / scale[axis];
    }
    inverseScale.mult(backward);
    inverseScale.mult(linear);
    rotation.setValue(inverseScale);
    scaleOrientation.setValue(orientation);
}

template <class T>
void TransformationMatrix<T>::getTransform(VectorType& translation, QuaternionType& rotation, VectorType& scale,
                                           QuaternionType& scaleOrientation, const VectorType& center) const {
    TransformationMatrix toCenter, centered(*this);
    toCenter.setTranslate(center);
    centered.mult(toCenter);
    toCenter.setTranslate(-center);
    centered.multLeft(toCenter);
    centered.getTransform(translation, rotation, scale, scaleOrientation);
}

template void TransformationMatrix<Real32>::getTransform(Vec3f&, Quaternion&, Vec3f&, Quaternion&) const;
template void TransformationMatrix<Real32>::getTransform(Vec3f&, Quaternion&, Vec3f&, Quaternion&, const Vec3f&) const;

} // namespace osg
