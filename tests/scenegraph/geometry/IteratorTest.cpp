#include "Geometries.h"

#include <OpenSG/OSGLineIterator.h>
#include <OpenSG/OSGPrimitiveIterator.h>
#include <OpenSG/OSGTriangleIterator.h>

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

using osg::Geometry;

/// The position indices of all elements, as "(0 1 2) (2 1 3)".
template <class Iterator> std::string elements(Iterator iterator, const Iterator& end, osg::UInt32 cornerCount) {
    std::string text;
    for (osg::UInt32 number = 0; iterator != end; ++iterator, ++number) {
        EXPECT_EQ(iterator.getIndex(), number);
        text += text.empty() ? "(" : " (";
        for (osg::UInt32 which = 0; which < cornerCount; ++which)
            text += (which ? " " : "") + std::to_string(iterator.getPositionIndex(which));
        text += ")";
    }
    return text;
}

std::string triangles(const osg::GeometryPtr& geometry) {
    return elements(geometry->beginTriangles(), geometry->endTriangles(), 3);
}

std::string lines(const osg::GeometryPtr& geometry) {
    return elements(geometry->beginLines(), geometry->endLines(), 2);
}

TEST(ElementIterator, DecomposesEveryPrimitive) {
    const struct {
        osg::UInt8 type;
        std::vector<osg::UInt32> lengths;
        const char *triangles, *lines;
    } rows[] = {
        {GL_TRIANGLES, {6}, "(0 1 2) (3 4 5)", ""},
        {GL_TRIANGLES, {4, 5}, "(0 1 2) (3 4 5)", ""},
        {GL_TRIANGLES, {0, 1, 2}, "", ""},
        {GL_TRIANGLE_STRIP, {6}, "(0 1 2) (2 1 3) (2 3 4) (4 3 5)", ""},
        {GL_TRIANGLE_FAN, {6}, "(0 1 2) (0 2 3) (0 3 4) (0 4 5)", ""},
        {GL_POLYGON, {6}, "(0 1 2) (0 2 3) (0 3 4) (0 4 5)", ""},
        {GL_QUADS, {8}, "(0 1 2) (0 2 3) (4 5 6) (4 6 7)", ""},
        {GL_QUADS, {5, 6, 7}, "(0 1 2) (0 2 3) (4 5 6)", ""},
        {GL_QUADS, {3}, "(0 1 2)", ""},
        {GL_QUAD_STRIP, {6}, "(0 1 2) (2 1 3) (2 3 4) (4 3 5)", ""},
        {GL_QUAD_STRIP, {5}, "(0 1 2) (2 1 3) (2 3 4)", ""},
        {GL_POINTS, {6}, "", ""},
        {GL_LINES, {3, 4}, "", "(0 1) (2 3)"},
        {GL_LINES, {5}, "", "(0 1) (2 3) (4 5)"},
        {GL_LINE_STRIP, {4}, "", "(0 1) (1 2) (2 3)"},
        {GL_LINE_LOOP, {4}, "", "(0 1) (1 2) (2 3) (3 0)"},
        {GL_LINE_LOOP, {2}, "", "(0 1) (1 0)"},
        {GL_LINES, {0, 1}, "", ""},
        {GL_LINE_STRIP, {0, 1}, "", ""},
        {GL_LINE_LOOP, {0, 1}, "", ""},
        {200, {6}, "", ""},
    };
    for (const auto& row : rows)
        for (const osg::UInt32 length : row.lengths) {
            const auto geometry = geometryOf({{row.type}, {length}});
            EXPECT_EQ(triangles(geometry), row.triangles) << +row.type << " of " << length;
            EXPECT_EQ(lines(geometry), row.lines) << +row.type << " of " << length;
        }
}

TEST(ElementIterator, LeavesOutDegeneratesOfStripsButTheFirst) {
    const struct {
        osg::UInt8 type;
        std::vector<osg::UInt32> indices;
        const char* expected;
    } rows[] = {
        {GL_TRIANGLE_STRIP, {0, 1, 2, 2, 3, 3, 4, 5}, "(0 1 2) (4 3 5)"},
        {GL_TRIANGLE_STRIP, {0, 0, 1, 2, 3}, "(0 0 1) (1 0 2) (1 2 3)"},
        {GL_QUAD_STRIP, {0, 1, 1, 2}, "(0 1 1)"},
        {GL_TRIANGLE_FAN, {0, 1, 1, 2, 3}, "(0 1 1) (0 1 2) (0 2 3)"},
    };
    for (const auto& row : rows) {
        const auto length = static_cast<osg::UInt32>(row.indices.size());
        EXPECT_EQ(triangles(geometryOf({{row.type}, {length}, 6, row.indices})), row.expected);
    }
    EXPECT_EQ(lines(geometryOf({{GL_LINES}, {4}, 5, {3, 3, 2, 2}})), "(3 3) (2 2)") << "lines keep them";
}

TEST(ElementIterator, GoesThroughMixedPrimitives) {
    const auto geometry =
        geometryOf({{GL_TRIANGLES, GL_LINES, GL_TRIANGLE_FAN, GL_POINTS, GL_LINE_LOOP}, {3, 2, 4, 2, 3}});
    EXPECT_EQ(triangles(geometry), "(0 1 2) (5 6 7) (5 7 8)");
    EXPECT_EQ(lines(geometry), "(3 4) (11 12) (12 13) (13 11)");

    osg::TriangleIterator triangle(geometry);
    EXPECT_EQ(triangle.getPositionIndex(2), 0) << "not positioned yet";
    triangle.seek(2);
    EXPECT_EQ(triangle.getPositionIndex(1), 7);
    EXPECT_EQ(triangle.getType(), GL_TRIANGLE_FAN);
    EXPECT_TRUE(geometry->beginTriangles() < triangle && triangle < geometry->endTriangles());
    triangle.seek(9);
    EXPECT_TRUE(triangle == geometry->endTriangles() && triangle == osg::TriangleIterator());
    EXPECT_TRUE(geometryOf({})->beginTriangles() == geometry->endTriangles());
    EXPECT_TRUE(geometryOf({})->beginPrimitives() != geometry->endPrimitives());
}

template <class Indices> void expectSlotsToServeTheirProperties() {
    const auto geometry = geometryOf<Indices>({{GL_TRIANGLES, GL_LINE_STRIP},
                                               {3, 3},
                                               6,
                                               {10, 0, 11, 1, 12, 2, 13, 3, 14, 4, 15, 5},
                                               {Geometry::MapNormal, Geometry::MapPosition}});
    geometry->setNormals(osg::GeoNormals3f::create());
    geometry->getNormals()->resize(12);
    geometry->getNormals()->setValue(osg::Vec3f(0, 1, 0), 11);
    EXPECT_EQ(triangles(geometry), "(0 1 2)");
    EXPECT_EQ(lines(geometry), "(3 4) (4 5)");
    const osg::TriangleIterator triangle = geometry->beginTriangles();
    EXPECT_EQ(triangle.getNormalIndex(1), 11);
    EXPECT_EQ(triangle.getNormal(1), osg::Vec3f(0, 1, 0));
    EXPECT_EQ(triangle.getNormal(2), osg::Vec3f()) << "there is no normal 12";
    EXPECT_EQ(triangle.getColorIndex(1), -1);
    EXPECT_EQ(triangle.getIndexIndex(2), 4);
}

TEST(ElementIterator, ReadsThroughTheIndexMapping) {
    expectSlotsToServeTheirProperties<osg::GeoIndicesUI32>();
    expectSlotsToServeTheirProperties<osg::GeoIndicesUI16>();
    EXPECT_EQ(triangles(geometryOf({{GL_TRIANGLES}, {3}, 9, {5, 6, 7}, {Geometry::MapPosition | Geometry::MapNormal}})),
              "(5 6 7)");
}

// What a geometry lacks is never read, and ends the walk soon.
TEST(ElementIterator, LeavesOutWhatDoesNotExist) {
    const osg::UInt32 huge = 4000000000u;
    const struct {
        const char* situation;
        Content content;
        const char* expected;
    } rows[] = {
        {"no types", {{}, {3}}, ""},
        {"no lengths: all vertices", {{GL_TRIANGLES, GL_TRIANGLES}, {}, 7}, "(0 1 2) (3 4 5)"},
        {"fewer lengths than types", {{GL_TRIANGLES, GL_TRIANGLES}, {3}}, "(0 1 2)"},
        {"no positions property", {{GL_TRIANGLES}, {6}, -1}, "(0 1 2) (3 4 5)"},
        {"no positions in it", {{GL_TRIANGLES}, {6}, 0}, ""},
        {"huge lengths", {{GL_TRIANGLES, GL_TRIANGLE_FAN}, {huge, huge}, 4}, "(0 1 2)"},
        {"huge strip", {{GL_TRIANGLE_STRIP, GL_TRIANGLES}, {huge, huge}, 4}, "(0 1 2) (2 1 3)"},
        {"partial primitive at the end", {{GL_TRIANGLES}, {4}, 4}, "(0 1 2)"},
        {"too few indices", {{GL_QUADS}, {8}, 9, {8, 7, 6, 5, 4}}, "(8 7 6) (8 6 5)"},
        {"indices without position", {{GL_TRIANGLES}, {9}, 3, {0, 1, huge, 0, 3, 2, 2, 1, 0}}, "(2 1 0)"},
        {"incomplete last slot", {{GL_TRIANGLES}, {9}, 9, {0, 1, 2, 3, 4, 5, 6}, {1, 2}}, "(0 2 4)"},
    };
    for (const auto& row : rows) EXPECT_EQ(triangles(geometryOf(row.content)), row.expected) << row.situation;

    const auto unbacked = geometryOf({std::vector<osg::UInt8>(1000, GL_TRIANGLES), {}, -1});
    osg::UInt32 count = 0;
    for (auto it = unbacked->beginTriangles(); it != unbacked->endTriangles(); ++it) ++count;
    EXPECT_LT(count, 10000000u) << "nothing but the limit bounds these";
}

TEST(ElementIterator, StaysInsideArbitraryContent) {
    std::mt19937 generator(3);
    const auto below = [&](osg::UInt32 limit) { return static_cast<osg::UInt32>(generator() % limit); };
    int delivered = 0;
    for (int run = 0; run < 2000; ++run) {
        Content content{{}, {}, static_cast<int>(below(30)) - 1};
        for (osg::UInt32 i = below(6); i > 0; --i) content.types.push_back(static_cast<osg::UInt8>(below(12)));
        for (osg::UInt32 i = below(6); i > 0; --i) content.lengths.push_back(below(8) ? below(12) : generator());
        for (osg::UInt32 i = below(2) * below(40); i > 0; --i)
            content.indices.push_back(below(20) ? below(20) : generator());
        for (osg::UInt32 i = below(4); i > 0; --i) content.mapping.push_back(static_cast<osg::UInt16>(below(32)));
        const auto geometry = geometryOf(content);
        const auto end = geometry->endTriangles();
        const osg::UInt32 limit =
            content.positionCount < 0 ? 0xffffffffu : static_cast<osg::UInt32>(content.positionCount);
        for (auto it = geometry->beginTriangles(); it != end && it.getIndex() < 1000; ++it, ++delivered)
            for (osg::UInt32 which = 0; which < 3; ++which)
                ASSERT_LT(static_cast<osg::UInt32>(it.getPositionIndex(which)), limit) << "run " << run;
    }
    EXPECT_GT(delivered, 2000);
}

} // namespace
