#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGVector.h>

#include <support/Primitives.h>

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

namespace {

using namespace osg;
using tesk::test::identical;

const Real32 notANumber = std::numeric_limits<Real32>::quiet_NaN();
const Real32 infinity = std::numeric_limits<Real32>::infinity();

constexpr auto multiply = [](auto&& a, auto&& b) -> decltype(a * b) { return a * b; };
constexpr auto divide = [](auto&& a, auto&& b) -> decltype(a / b) { return a / b; };
constexpr auto negate = [](auto&& a) -> decltype(-a) { return -a; };
template <class... Operands, class Operation> constexpr bool compiles(Operation) {
    return std::is_invocable_v<Operation, Operands...>;
}

// Arrays of points go to OpenGL as they are.
static_assert(sizeof(Pnt3f) == 12 && sizeof(Vec3f) == 12 && sizeof(Color4ub) == 4);
static_assert(std::is_trivially_copyable_v<Pnt3f> && std::is_standard_layout_v<Vec3f>);

static_assert(std::is_base_of_v<Pnt3f, Vec3f>);
static_assert(std::is_convertible_v<Pnt3f, Vec3f> && std::is_convertible_v<Vec3f, Pnt3f>);
static_assert(std::is_assignable_v<Vec3f&, Pnt3f> && std::is_assignable_v<Pnt3f&, Pnt4f>);
static_assert(!std::is_assignable_v<Pnt3f&, Vec3f>);

static_assert(std::is_same_v<decltype(Pnt3f() - Pnt3f()), Vec3f>);
static_assert(std::is_same_v<decltype(Pnt3f() - Vec3f()), Pnt3f>);
static_assert(std::is_same_v<decltype(Pnt3f() + Pnt3f()), Pnt3f>);
static_assert(std::is_same_v<decltype(Vec3f() - Pnt3f()), Vec3f>);
static_assert(std::is_same_v<decltype(0.5f * Pnt3f()), Pnt3f> && std::is_same_v<decltype(Pnt3f() * 2), Pnt3f>);
static_assert(std::is_same_v<decltype(0.5f * Vec3f()), Vec3f> && std::is_same_v<decltype(Vec3f() * 2.0), Vec3f>);
static_assert(std::is_same_v<decltype(Vec3f() * Vec3f()), Real32>);
static_assert(!compiles<double, Vec3f>(multiply) && !compiles<int, Vec3f>(multiply));
static_assert(!compiles<Vec3f, Real32>(divide) && !compiles<Pnt3f, Real32>(divide));
static_assert(compiles<const Vec3f&>(negate) && compiles<Pnt3f&>(negate) && !compiles<const Pnt3f&>(negate));

static_assert(!std::is_constructible_v<Color3f, Real32> && !std::is_constructible_v<Color4f, Color3f, Real32>);
static_assert(!std::is_constructible_v<Color4f, Real32, Real32, Real32>);
static_assert(compiles<Color3f&, Real32>(multiply) && !compiles<const Color3f&, Real32>(multiply));
static_assert(compiles<const Color3f&, Color3f>(multiply) && !compiles<Real32, Color3f>(multiply));

TEST(Point, TakesWhatFitsAndFillsWithZero) {
    const struct {
        const char* from;
        Pnt3f made, expected;
    } rows[] = {
        {"one value", Pnt3f(5), {5, 0, 0}},
        {"two values", Pnt3f(1, 2), {1, 2, 0}},
        {"four values", Pnt3f(1, 2, 3, 4), {1, 2, 3}},
        {"a shorter point", Pnt2f(1, 2), {1, 2, 0}},
        {"a longer vector", Vec4f(1, 2, 3, 4), {1, 2, 3}},
        {"other components", Pnt3s(1, -2, 3), {1, -2, 3}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.from);
        EXPECT_TRUE(identical(row.made, row.expected));
    }
}

TEST(Point, ComparesWithinEps) {
    const struct {
        Pnt3f a, b;
        bool equal;
    } rows[] = {
        {{0, 0, 0}, {0, 0, 9e-7f}, true},
        {{0, 0, 0}, {0, 1.1e-6f, 0}, false},
        {{1, 2, 3}, {1, 2, 3.001f}, false},
        {{notANumber, 0, 0}, {notANumber, 0, 0}, false},
        {{0, infinity, 0}, {0, infinity, 0}, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.a << " and " << row.b);
        EXPECT_EQ(row.a == row.b, row.equal);
        EXPECT_EQ(row.a != row.b, !row.equal);
    }
    EXPECT_LT(Pnt3f(1, 2, 3), Pnt3f(1, 3, 0));
    EXPECT_FALSE(Pnt3f(1, 3, 0) < Pnt3f(1, 2, 3));
    EXPECT_TRUE(Vec3f(0, -9e-7f, 0).isZero());
    EXPECT_FALSE(Vec3f(0, 0, 2e-6f).isZero());
    EXPECT_EQ(Pnt3f(-1, -2, -3).maxValue(), std::numeric_limits<Real32>::min());
}

TEST(Vector, SumsProductsFromLeftToRight) {
    // Any other order of the additions gives 0.
    EXPECT_EQ(Vec3f(1e8f, -1e8f, 1).dot(Vec3f(1, 1, 1)), 1.0f);
    EXPECT_EQ(Vec3f(1, 2, 3) * Vec3f(4, -5, 6), 12.0f);
    EXPECT_EQ(Vec4f(1, 2, 3, 4).squareLength(), 30.0f);
    EXPECT_EQ(Pnt2f(1, 1).dist(Pnt2f(4, 5)), 5.0f);
    EXPECT_TRUE(identical(Pnt3f(Vec3f(1, 0, 0) % Vec3f(0, 1, 0)), {0, 0, 1}));
}

TEST(Vector, NormalizeLeavesAVectorShorterThanEps) {
    Vec3f tiny(0, 9e-7f, 0), small(0, 0, -2e-6f), diagonal(3, 0, 4);
    tiny.normalize();
    small.normalize();
    diagonal.normalize();
    EXPECT_TRUE(identical(Pnt3f(tiny), {0, 9e-7f, 0}));
    EXPECT_FLOAT_EQ(small.z(), -1.0f);
    EXPECT_EQ(diagonal, Vec3f(0.6f, 0, 0.8f));
}

TEST(Color, StartsTransparentAndIsNotClamped) {
    EXPECT_EQ(Color4f().alpha(), 0.0f);
    EXPECT_EQ(Color4f(1, 0.5f, 0, 1) * Color4f(2, 2, 2, 2) + 1.0f, Color4f(3, 2, 1, 3));
}

} // namespace
