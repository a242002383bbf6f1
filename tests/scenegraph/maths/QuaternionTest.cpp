#include <OpenSG/OSGMatrix.h>
#include <OpenSG/OSGQuaternion.h>

#include <support/Random.h>

#include <gtest/gtest.h>

namespace {

using namespace osg;
using tesk::test::Random;

Vec4f components(const Quaternion& quaternion) { return Vec4f(quaternion.getValues()); }

TEST(Quaternion, TurnsOneDirectionIntoAnother) {
    const Vec3f x(1, 0, 0), z(0, 0, 1);
    const Real32 half = 0.70710678f;
    const struct {
        Vec3f from, to;
        Vec4f expected;
    } rows[] = {
        {z, z * 5, {0, 0, 0, 1}},
        {z, {0.004f, 0, 1}, {0, 0, 0, 1}},
        {z, {0.005f, 0, 1}, {0, 0.0025017f, 0, 0.999997f}},
        {z, x, {0, half, 0, half}},
        {z * 3, {0, 1, 1}, {-0.382683f, 0, 0, 0.92388f}},
        {z, -z, {0, 1, 0, 0}},
        {x, -x, {0, 0, 1, 0}},
        {z, {0, 0, 0}, {0, 0, 0, half}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.from << " -> " << row.to);
        EXPECT_EQ(components(Quaternion(row.from, row.to)), row.expected);
    }
    // Exactly the identity, not nearly.
    EXPECT_EQ(Quaternion(z, {0.004f, 0, 1}).y(), 0.0f);
    Matrix matrix;
    Quaternion(z, Vec3f()).getValue(matrix);
    EXPECT_EQ(matrix, Matrix());
}

TEST(Quaternion, AgreesWithMatrices) {
    Random random(4);
    for (int run = 0; run < 200; ++run) {
        SCOPED_TRACE(run);
        const Quaternion a(random.vector(1), random.vector(1));
        Quaternion b(random.vector(2), random.real(-7, 7));
        // Half turns about the axes, where but one component is not 0.
        if (run < 3) b.setValueAsQuat(run == 0, run == 1, run == 2, 0);
        Matrix aMatrix, bMatrix, productMatrix;
        a.getValue(aMatrix);
        b.getValue(bMatrix);
        aMatrix.mult(bMatrix);
        Quaternion product = a, swapped = b;
        product.mult(b);
        swapped.multLeft(a);
        product.getValue(productMatrix);
        ASSERT_TRUE(productMatrix.equals(aMatrix, 1e-5f));
        ASSERT_EQ(product, swapped);

        const Vec3f vector = random.vector(1);
        Vec3f byMatrix, byQuaternion;
        bMatrix.mult(vector, byMatrix);
        b.multVec(vector, byQuaternion);
        ASSERT_TRUE(byQuaternion.equals(byMatrix, 1e-5f));
        b.inverse().multVec(byQuaternion, byQuaternion);
        ASSERT_TRUE(byQuaternion.equals(vector, 1e-5f));

        // The same rotation, whichever component is the largest and whatever the sign.
        Matrix again;
        Quaternion(bMatrix).getValue(again);
        ASSERT_TRUE(again.equals(bMatrix, 1e-5f));
    }
}

TEST(Quaternion, KnowsAxisAndAngle) {
    Vec3f axis;
    Real32 angle;
    Quaternion(Vec3f(0, 3, 4), -3).getValueAsAxisRad(axis, angle);
    EXPECT_EQ(axis, Vec3f(0, -0.6f, -0.8f));
    EXPECT_FLOAT_EQ(angle, 3);
    Quaternion(Vec3f(9e-7f, 0, 0), 1).getValueAsAxisRad(axis, angle);
    EXPECT_EQ(axis, Vec3f(0, 0, 1));
    EXPECT_EQ(angle, 0.0f);
}

} // namespace
