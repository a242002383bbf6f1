#include <rendering/import/detail/PolygonTriangulation.h>

#include <support/Random.h>

#include <gtest/gtest.h>

#include <cmath>

namespace tesk::rendering::detail {

namespace {

typedef std::vector<std::array<std::uint32_t, 3>> Triangles;

/// Of the projection along z, positive when counterclockwise.
double signedArea(const Point& a, const Point& b, const Point& c) {
    const double ax = a[0], ay = a[1];
    return 0.5 * ((double(b[0]) - ax) * (double(c[1]) - ay) - (double(b[1]) - ay) * (double(c[0]) - ax));
}

} // namespace

TEST(PolygonTriangulation, CutsAsExpected) {
    const struct {
        const char* shape;
        std::vector<Point> polygon;
        Triangles triangles;
    } rows[] = {
        {"square", {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}, {{0, 1, 2}, {0, 2, 3}}},
        {"clockwise in the plane x = 1", {{1, 0, 0}, {1, 0, 1}, {1, 1, 1}, {1, 1, 0}}, {{0, 1, 2}, {0, 2, 3}}},
        {"arrowhead, reflex at 2", {{0, 0, 0}, {4, 2, 0}, {1, 2, 0}, {0, 4, 0}}, {{0, 1, 2}, {0, 2, 3}}},
        {"arrowhead, reflex at 3", {{0, 4, 0}, {0, 0, 0}, {4, 2, 0}, {1, 2, 0}}, {{1, 2, 3}, {0, 1, 3}}},
        {"no area", {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}}, {{0, 1, 2}, {0, 2, 3}}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.shape);
        EXPECT_EQ(triangulate(row.polygon), row.triangles);
    }
}

TEST(PolygonTriangulation, CoversStarsOnce) {
    test::Random random(3);
    for (int run = 0; run < 300; ++run) {
        std::vector<Point> star;
        const std::uint32_t cornerCount = 3 + random.below(40);
        for (std::uint32_t corner = 0; corner < cornerCount; ++corner) {
            const float angle = 6.2831853f * static_cast<float>(corner) / static_cast<float>(cornerCount);
            const float radius = random.real(0.2f, 1.0f);
            star.push_back({radius * std::cos(angle), radius * std::sin(angle), 0.5f});
        }
        double outlineArea = 0, coveredArea = 0;
        for (std::uint32_t corner = 0; corner < cornerCount; ++corner)
            outlineArea += signedArea({0, 0, 0}, star[corner], star[(corner + 1) % cornerCount]);
        const Triangles triangles = triangulate(star);
        ASSERT_EQ(triangles.size(), cornerCount - 2);
        for (const auto& triangle : triangles) {
            const double area = signedArea(star[triangle[0]], star[triangle[1]], star[triangle[2]]);
            // None is turned over: together with the sum, none overlaps another.
            ASSERT_GE(area, -1e-9) << "run " << run;
            coveredArea += area;
        }
        ASSERT_NEAR(coveredArea, outlineArea, 1e-6) << "run " << run;
    }
}

} // namespace tesk::rendering::detail
