#include <OpenSG/OSGDynamicVolume.h>
#include <OpenSG/OSGLine.h>
#include <OpenSG/OSGPlane.h>

#include <support/Primitives.h>
#include <support/Random.h>

#include <gtest/gtest.h>

namespace {

using namespace osg;
using tesk::test::identical;
using tesk::test::Random;

testing::AssertionResult hasBounds(const Volume& volume, const Pnt3f& minimum, const Pnt3f& maximum) {
    const auto lower = identical(volume.getMin(), minimum);
    return lower ? identical(volume.getMax(), maximum) : lower;
}

TEST(BoxVolume, IsNonEmptyOnceItHasBounds) {
    BoxVolume box;
    EXPECT_TRUE(box.isValid() && box.isEmpty());
    EXPECT_TRUE(hasBounds(box, {0, 0, 0}, {0, 0, 0}));
    EXPECT_FALSE(BoxVolume(0, 0, 0, 0, 0, 0).isEmpty());
    EXPECT_FALSE(BoxVolume(Pnt3f(1, 1, 1), Pnt3f(0, 0, 0)).isEmpty());
    box.setBounds(2, 4, 6);
    EXPECT_TRUE(hasBounds(box, {-1, -2, -3}, {1, 2, 3}));
    EXPECT_EQ(box.getScalarVolume(), 48.0f);
    box.setEmpty();
    box.transform(Matrix(2, 0, 0, 5, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1));
    EXPECT_EQ(box.getScalarVolume(), 0.0f);
    EXPECT_TRUE(hasBounds(box, {-1, -2, -3}, {1, 2, 3}));
}

TEST(BoxVolume, ExtendsByPointsUnlessUntouchable) {
    BoxVolume box;
    box.extendBy(Pnt3f(1, 2, 3));
    EXPECT_TRUE(hasBounds(box, {1, 2, 3}, {1, 2, 3}));
    box.extendBy(Pnt3f(0, 5, 3));
    EXPECT_TRUE(hasBounds(box, {0, 2, 3}, {1, 5, 3}));
    const UInt16 untouchable[] = {Volume::ValidState | Volume::StaticState, Volume::ValidState | Volume::InfiniteState,
                                  0};
    for (const UInt16 state : untouchable) {
        SCOPED_TRACE(state);
        box.setState(state);
        box.extendBy(Pnt3f(100, 100, 100));
        EXPECT_TRUE(hasBounds(box, {0, 2, 3}, {1, 5, 3}));
    }
}

TEST(BoxVolume, ExtendsByBoxes) {
    BoxVolume emptyBox(5, 5, 5, 6, 6, 6), invalidBox(emptyBox), staticBox(emptyBox), infiniteBox(emptyBox);
    emptyBox.setEmpty();
    invalidBox.setValid(false);
    staticBox.setStatic();
    infiniteBox.setInfinite();

    BoxVolume box(0, 0, 0, 1, 1, 1);
    box.extendBy(emptyBox);
    box.extendBy(invalidBox);
    EXPECT_TRUE(hasBounds(box, {0, 0, 0}, {1, 1, 1}));
    box.extendBy(BoxVolume(-1, 0.5f, 0, 0, 2, 1));
    EXPECT_TRUE(hasBounds(box, {-1, 0, 0}, {1, 2, 1}));
    box.extendBy(infiniteBox);
    EXPECT_TRUE(box.isInfinite() && !box.isEmpty());
    box.setEmpty();
    EXPECT_TRUE(box.isEmpty() && !box.isInfinite());

    BoxVolume receiver;
    receiver.extendBy(staticBox);
    EXPECT_TRUE(receiver.isStatic());
    EXPECT_TRUE(hasBounds(receiver, {5, 5, 5}, {6, 6, 6}));

    // What is always visible hands that on in any order, and no bounds.
    emptyBox.setAlwaysVisible();
    BoxVolume above, below;
    above.extendBy(emptyBox);
    above.extendBy(BoxVolume(0, 0, 0, 1, 1, 1));
    below.extendBy(above);
    EXPECT_TRUE(below.isAlwaysVisible() && hasBounds(below, {0, 0, 0}, {1, 1, 1}));
    below.setEmpty();
    EXPECT_FALSE(below.isAlwaysVisible());
}

TEST(BoxVolume, TransformsToTheBoxOfItsCorners) {
    Random random(6);
    for (int run = 0; run < 200; ++run) {
        Matrix matrix;
        matrix.setTransform(random.vector(5), Quaternion(random.vector(1), random.real(-3, 3)), random.vector(3));
        const Pnt3f a = random.point(10), b = random.point(10);
        BoxVolume box, expected;
        box.extendBy(a);
        box.extendBy(b);
        for (int corner = 0; corner < 8; ++corner) {
            Pnt3f point(corner & 1 ? a.x() : b.x(), corner & 2 ? a.y() : b.y(), corner & 4 ? a.z() : b.z());
            matrix.multMatrixPnt(point);
            expected.extendBy(point);
        }
        box.transform(matrix);
        ASSERT_TRUE(box.getMin().equals(expected.getMin(), 1e-4f)) << "run " << run;
        ASSERT_TRUE(box.getMax().equals(expected.getMax(), 1e-4f)) << "run " << run;
    }
}

TEST(BoxVolume, IntersectsPointsStrictlyAndBoxesThatTouch) {
    BoxVolume box(0, 0, 0, 1, 1, 1);
    EXPECT_TRUE(box.intersect(Pnt3f(0.5f, 0.5f, 0.9f)));
    EXPECT_FALSE(box.intersect(Pnt3f(0.5f, 0.5f, 1)));
    EXPECT_TRUE(box.intersect(BoxVolume(1, 1, 1, 2, 2, 2)));
    EXPECT_FALSE(box.intersect(BoxVolume(0, 1.1f, 0, 1, 2, 1)));
    EXPECT_FALSE(box.intersect(BoxVolume()));
}

TEST(DynamicVolume, KeepsItsOwnStateUntilToldOfAChange) {
    DynamicVolume volume;
    EXPECT_TRUE(volume.isValid() && volume.isEmpty());
    volume.getInstance().extendBy(Pnt3f(1, 2, 3));
    EXPECT_TRUE(volume.isEmpty());
    volume.instanceChanged();
    EXPECT_FALSE(volume.isEmpty());
    volume.setEmpty();
    volume.extendBy(BoxVolume(0, 0, 0, 1, 1, 1));
    EXPECT_FALSE(volume.isEmpty());
    EXPECT_TRUE(hasBounds(volume, {0, 0, 0}, {1, 1, 1}));
}

TEST(Line, MeetsTrianglesFromBothSidesAndBehind) {
    const struct {
        const char* what;
        Pnt3f position;
        Vec3f direction;
        bool meets;
        Real32 t;
    } rows[] = {
        {"ahead", {0.5f, 0.5f, 5}, {0, 0, -2}, true, 5},
        {"from below", {0.5f, 0.5f, -5}, {0, 0, 1}, true, 5},
        {"behind", {0.5f, 0.5f, 5}, {0, 0, 1}, true, -5},
        {"beside", {1.1f, 1, 5}, {0, 0, -1}, false, 7},
        {"beside another edge", {1, -0.1f, 5}, {0, 0, -1}, false, 7},
        {"parallel", {0, 0.5f, 0}, {1, 0, 0}, false, 7},
        {"without a direction", {0.5f, 0.5f, 0}, {0, 0, 0}, false, 7},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Real32 t = 7;
        Vec3f normal;
        EXPECT_EQ(Line(row.position, row.direction).intersect({0, 0, 0}, {2, 0, 0}, {0, 2, 0}, t, &normal), row.meets);
        EXPECT_EQ(t, row.t);
        EXPECT_EQ(normal, row.meets ? Vec3f(0, 0, 1) : Vec3f());
    }
}

TEST(Line, EntersAndLeavesBoxes) {
    const BoxVolume box(0, 0, 0, 1, 1, 1);
    const struct {
        Pnt3f position;
        Vec3f direction;
        bool meets;
        Real32 enter, exit;
    } rows[] = {
        {{-1, 0.5f, 0.5f}, {4, 0, 0}, true, 1, 2},        {{0.5f, 3, 0.5f}, {0, 1, 0}, false, 0, 0},
        {{0.5f, 0.25f, 0.5f}, {0, 1, 0}, true, 0, 0.75f}, {{0.5f, 0.5f, 2}, {1, 0, -1e-6f}, false, 0, 0},
        {{0.5f, 3, 0.5f}, {1, 0, 0}, false, 0, 0},        {{1, 1, -1}, {0, 0, 1}, true, 1, 2},
        {{0, 1.5f, 0.5f}, {1, 1, 0}, false, 0, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.position << " along " << row.direction);
        Real32 enter, exit;
        ASSERT_EQ(box.intersect(Line(row.position, row.direction), enter, exit), row.meets);
        if (!row.meets) continue;
        EXPECT_EQ(enter, row.enter);
        EXPECT_EQ(exit, row.exit);
    }
    EXPECT_EQ(Line(Pnt3f(1, 0, 0), Pnt3f(5, 0, 0)).getClosestPoint({3, 4, 0}), Pnt3f(3, 0, 0));
}

TEST(Plane, MeasuresOnTheSideOfItsNormal) {
    const Plane plane(Pnt3f(0, 0, 2), Pnt3f(1, 0, 2), Pnt3f(0, 1, 2));
    EXPECT_EQ(plane.distance({7, 7, 5}), 3.0f);
    EXPECT_FALSE(plane.isInHalfSpace({7, 7, 1}));
    Real32 t = 9;
    EXPECT_FALSE(plane.intersect(Line(Pnt3f(0, 0, 5), Vec3f(1, 0, 0)), t));
    EXPECT_TRUE(plane.intersect(Line(Pnt3f(0, 0, 5), Vec3f(0, 0, -1)), t));
    EXPECT_EQ(t, 3.0f);
    EXPECT_FALSE(plane.intersect(Line(Pnt3f(0, 0, 5), Vec3f(0, 0, 1)), t));
    EXPECT_TRUE(plane.intersect(Line(Pnt3f(0, 0, 2), Vec3f(1, 0, 0)), t));
    EXPECT_EQ(t, 0.0f);
}

} // namespace
