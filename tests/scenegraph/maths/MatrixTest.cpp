#include <OpenSG/OSGMatrix.h>
#include <OpenSG/OSGMatrixUtility.h>

#include <support/Primitives.h>
#include <support/Random.h>

#include <gtest/gtest.h>

namespace {

using namespace osg;
using tesk::test::identical;
using tesk::test::Random;

const Matrix counting(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
const Quaternion quarterTurn(Vec3f(0, 0, 1), Pi / 2);

Matrix scaled(Real32 x, Real32 y, Real32 z) {
    Matrix matrix;
    matrix.setScale(x, y, z);
    return matrix;
}

Matrix moved(Real32 x, Real32 y, Real32 z) {
    Matrix matrix;
    matrix.setTranslate(x, y, z);
    return matrix;
}

Quaternion rotation(Random& random) { return Quaternion(random.vector(1), random.real(-3, 3)); }

TEST(Matrix, IsStoredByColumnsAndGivenByRows) {
    EXPECT_EQ(counting[3], Vec4f(4, 8, 12, 16));
    EXPECT_EQ(counting[0][2], 9.0f);
    EXPECT_EQ(counting.getValues()[12], 4.0f);
    Matrix matrix;
    matrix.setValue(counting.getValues());
    EXPECT_EQ(matrix, counting);
    matrix.transpose();
    EXPECT_EQ(matrix[2], Vec4f(9, 10, 11, 12));
}

TEST(Matrix, SettersWriteOnlyTheirElements) {
    Matrix matrix = counting;
    matrix.setScale(-1);
    matrix.setTranslate(-2, -3, -4);
    EXPECT_EQ(matrix, Matrix(-1, 2, 3, -2, 5, -1, 7, -3, 9, 10, -1, -4, 13, 14, 15, 16));
    matrix.setRotate(quarterTurn);
    EXPECT_EQ(matrix, Matrix(0, -1, 0, -2, 1, 0, 0, -3, 0, 0, 1, -4, 13, 14, 15, 16));
}

TEST(Matrix, MultAppliesTheArgumentFirst) {
    Matrix first = moved(1, 2, 3), last = moved(1, 2, 3);
    first.mult(scaled(10, 10, 10));
    last.multLeft(scaled(10, 10, 10));
    Pnt3f movedLast(1, 0, 0), movedFirst(1, 0, 0);
    first.multMatrixPnt(movedLast);
    last.multMatrixPnt(movedFirst);
    EXPECT_TRUE(identical(movedLast, {11, 2, 3}));
    EXPECT_TRUE(identical(movedFirst, {20, 20, 30}));
    Matrix square = counting;
    square.mult(square);
    EXPECT_EQ(square[1], Vec4f(100, 228, 356, 484));
}

TEST(Matrix, TransformsPointsVectorsAndProjectedPoints) {
    Pnt3f point(1, 2, 3);
    Vec3f vector(1, 2, 3);
    Vec4f full(1, 2, 3, 2);
    counting.mult(point, point);
    counting.mult(vector, vector);
    counting.multMatrixVec(full, full);
    EXPECT_TRUE(identical(point, {18, 46, 74}));
    EXPECT_TRUE(identical(Pnt3f(vector), {14, 38, 62}));
    EXPECT_EQ(full, Vec4f(22, 54, 86, 118));

    Matrix projection;
    projection[2][3] = 1;
    projection[3][3] = 0;
    Pnt3f ahead(2, 4, 2), beside(2, 4, 0);
    projection.multFullMatrixPnt(ahead);
    projection.multFullMatrixPnt(beside);
    EXPECT_TRUE(identical(ahead, {1, 2, 1}));
    EXPECT_TRUE(identical(beside, {0, 0, 0}));
    // Any other order of the additions gives 0.
    Pnt3f ordered(1e8f, -1e8f, 1);
    Matrix(1, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1).multMatrixPnt(ordered);
    EXPECT_EQ(ordered.x(), 1.0f);
}

TEST(Matrix, SetTransformComposesAboutTheCentre) {
    Random random(1);
    for (int run = 0; run < 100; ++run) {
        const Vec3f translation = random.vector(5), center = random.vector(5), scale = random.vector(3);
        const Quaternion turn = rotation(random), orientation = rotation(random);
        Matrix matrix;
        matrix.setTransform(translation, turn, scale, orientation, center);
        const Pnt3f point = random.point(10);
        Vec3f expected = point - center;
        orientation.inverse().multVec(expected, expected);
        expected.setValues(expected.x() * scale.x(), expected.y() * scale.y(), expected.z() * scale.z());
        orientation.multVec(expected, expected);
        turn.multVec(expected, expected);
        expected += center + translation;
        Pnt3f transformed;
        matrix.multMatrixPnt(point, transformed);
        ASSERT_TRUE(transformed.equals(expected, 1e-4f)) << "run " << run << ": " << transformed << " / " << expected;
    }
}

TEST(Matrix, GetTransformFindsTheFactors) {
    const Vec3f untouched(7, 7, 7);
    const struct {
        const char* what;
        Quaternion turn;
        Vec3f scale, expectedScale;
        Quaternion expectedTurn;
    } rows[] = {
        {"uniform", quarterTurn, {2, 2, 2}, {2, 2, 2}, quarterTurn},
        {"scale along turned axes", quarterTurn, {2, 3, 4}, {3, 2, 4}, quarterTurn},
        {"mirrored", {}, {-1, -1, -1}, {-1, -1, -1}, {}},
        {"mirrored in x", {}, {-1, 1, 1}, {-1, -1, -1}, Quaternion({1, 0, 0}, Pi)},
        {"singular", quarterTurn, {1, 0, 1}, untouched, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Matrix matrix;
        matrix.setTransform({1, 2, 3}, row.turn, row.scale);
        Vec3f translation, scale = untouched;
        Quaternion turn, orientation(Vec3f(1, 0, 0), 1);
        matrix.getTransform(translation, turn, scale, orientation);
        EXPECT_EQ(translation, Vec3f(1, 2, 3));
        EXPECT_EQ(scale, row.expectedScale);
        EXPECT_EQ(orientation, Quaternion());
        EXPECT_EQ(turn, row.expectedTurn);
    }
}

TEST(Matrix, GetTransformFactorsMultiplyToTheMatrix) {
    Random random(2);
    for (int run = 0; run < 200; ++run) {
        const Vec3f center = random.vector(1);
        Matrix matrix;
        for (UInt32 i = 0; i < 16; ++i)
            if (i % 4 < 3) matrix.getValues()[i] = random.real(-1, 1) + (i % 5 == 0 ? 3.0f : 0.0f);
        if (run % 2 == 1) matrix[0] *= -1;
        Vec3f translation, scale;
        Quaternion turn, orientation;
        matrix.getTransform(translation, turn, scale, orientation, center);
        Matrix rebuilt, part;
        rebuilt.setTransform(translation + center, Quaternion(), scale, orientation);
        part.setTransform(turn);
        rebuilt.mult(part);
        rebuilt.mult(moved(-center.x(), -center.y(), -center.z()));
        ASSERT_TRUE(rebuilt.equals(matrix, 1e-4f)) << "run " << run << ":\n" << matrix << "came back as\n" << rebuilt;
    }
}

TEST(Matrix, InverseUndoesTheMatrix) {
    Random random(3);
    for (int run = 0; run < 200; ++run) {
        Matrix matrix;
        for (UInt32 i = 0; i < 16; ++i) matrix.getValues()[i] = random.real(-1, 1) + (i % 5 == 0 ? 3.0f : 0.0f);
        Matrix product;
        ASSERT_TRUE(product.invertFrom(matrix));
        ASSERT_NEAR(product.det() * matrix.det(), 1.0f, 1e-4f);
        product.mult(matrix);
        ASSERT_TRUE(product.equals(Matrix::identity(), 1e-5f)) << "run " << run << ":\n" << matrix << product;
    }
}

TEST(Matrix, InverseOfASingularMatrixIsTheIdentity) {
    const struct {
        const char* what;
        Matrix matrix;
        bool invertible;
    } rows[] = {
        {"rank two", counting, false},
        {"scale 1e-11", scaled(1e-11f, 1e-11f, 1e-11f), false},
        {"scale 1e-10", scaled(1e-10f, 1e-10f, 1e-10f), true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Matrix result = counting;
        EXPECT_EQ(row.matrix.inverse(result), row.invertible);
        EXPECT_EQ(result == Matrix::identity(), !row.invertible);
    }
}

TEST(MatrixUtility, ProjectsOntoTheCube) {
    Matrix projection;
    ASSERT_FALSE(MatrixPerspective(projection, Pi / 6, 800.0f / 600.0f, 1, 100));
    EXPECT_TRUE(
        Pnt3f(projection[0][0], projection[1][1], projection[2][2]).equals({1.29904f, 1.73205f, -1.0202f}, 1e-5f));
    Pnt3f origin(0, 0, -10);
    projection.multFullMatrixPnt(origin);
    EXPECT_TRUE(origin.equals({0, 0, 0.818182f}, 1e-5f));
    ASSERT_FALSE(MatrixOrthogonal(projection, 1, 3, -2, 2, 5, 7));
    Pnt3f corner(3, -2, -5);
    projection.multFullMatrixPnt(corner);
    EXPECT_EQ(corner, Pnt3f(1, -1, -1));
    EXPECT_TRUE(MatrixPerspective(projection, Pi / 6, 1, 5, 5));
    EXPECT_EQ(projection, Matrix::identity());
}

TEST(MatrixUtility, LookAtPlacesACameraThatLooksAlongMinusZ) {
    Matrix camera;
    ASSERT_FALSE(MatrixLookAt(camera, {5, 0, 0}, {0, 0, 0}, {0, 0, 2}));
    EXPECT_EQ(camera, Matrix(0, 0, 1, 5, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 1));
    EXPECT_TRUE(MatrixLookAt(camera, {5, 0, 0}, {0, 0, 0}, {1, 0, 0}));
}

} // namespace
