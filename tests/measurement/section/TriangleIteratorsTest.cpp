#include <measurement/section/GenericTriangleIterator.h>
#include <measurement/section/TriListI16TriangleIterator.h>
#include <measurement/section/TriListI32TriangleIterator.h>

#include <scenegraph/geometry/Geometries.h>

#include <gtest/gtest.h>

namespace tesk::measurement {

using Indices = std::vector<osg::UInt32>;

/// Position i is (i, 0, 0).
template <class Iterator> static Indices visited(const osg::GeometryRefPtr& geometry) {
    const osg::NodeRefPtr node(osg::makeNodeFor(geometry));
    Indices indices;
    for (Iterator it(node); !it.isAtEnd(); ++it)
        for (const float x : {it.getPosition(0)[0], it.getPosition(1)[0], it.getPosition(2)[0]})
            indices.push_back(static_cast<osg::UInt32>(x));
    return indices;
}

TEST(TriListTriangleIterator, ReadsAsFarAsThereAreIndicesAndPositions) {
    const std::pair<Content, Indices> rows[] = {{{{}, {3, 3}, 9, {0, 1, 2, 2, 1, 3}}, {0, 1, 2}},
                                                {{{}, {3}, 9, {0, 8, 1, 8, 2, 8}, {1, 2}}, {0, 8, 1}},
                                                {{{}, {4}, 9, {0, 1, 2, 3, 4, 5}}, {0, 1, 2, 3, 4, 5}},
                                                {{{}, {5}, 9, {0, 1, 2, 3, 4}}, {0, 1, 2}},
                                                {{{}, {4294967295u}, 9, {0, 1, 2, 3}}, {0, 1, 2}},
                                                {{{}, {9}, 9, {9, 0, 1, 0, 1, 2, 0, 1, 65535}}, {0, 1, 2}},
                                                {{{}, {3}, 9}, {}},
                                                {{{}, {}, 9, {0, 1, 2}}, {}},
                                                {{{}, {3}, -1, {0, 1, 2}}, {}}};
    for (const auto& [content, expected] : rows) {
        EXPECT_EQ(visited<TriListI32TriangleIterator>(geometryOf(content)), expected);
        const auto with16Bits = geometryOf<osg::GeoIndicesUI16>(content);
        EXPECT_EQ(visited<TriListI16TriangleIterator>(with16Bits), expected);
        EXPECT_EQ(visited<TriListI32TriangleIterator>(with16Bits), Indices());
    }
}

TEST(GenericTriangleIterator, TakesAllPrimitivesApart) {
    const auto geometry = geometryOf({{4, 6}, {3, 4}, 4, {9, 0, 9, 1, 9, 2, 9, 2, 9, 1, 9, 3, 9, 4}, {2, 1}});
    EXPECT_EQ(visited<GenericTriangleIterator>(geometry), Indices({0, 1, 2, 2, 1, 3}));
    geometry->setPositions(osg::GeoPositions3d::create());
    geometry->getPositions()->resize(4);
    EXPECT_EQ(visited<GenericTriangleIterator>(geometry), Indices());
}

TEST(GenericTriangleIterator, StaysWithinTheVertices) {
    const std::pair<Content, Indices> rows[] = {{{{4}, {4294967295u}, 9, {0, 1, 2, 3}}, {0, 1, 2}},
                                                {{{4, 4}, {3}, 9, {0, 1, 2, 3, 4, 5}}, {0, 1, 2}},
                                                {{{4, 4}, {5, 4}, 9, {0, 1, 2, 3, 4, 5}}, {0, 1, 2, 3, 4, 5}},
                                                {{{5, 4}, {5, 4}, 8}, {0, 1, 2, 2, 1, 3, 2, 3, 4, 5, 6, 7}},
                                                {{{4}, {}, 4}, {0, 1, 2}},
                                                {{{4}, {}, 9, {8, 1, 2, 3, 4}}, {8, 1, 2}},
                                                {{{7}, {5}, 6}, {0, 1, 2, 0, 2, 3}},
                                                {{{7}, {5}, 7}, {0, 1, 2, 0, 2, 3, 4, 5, 6}}};
    for (const auto& [content, expected] : rows)
        EXPECT_EQ(visited<GenericTriangleIterator>(geometryOf(content)), expected) << testing::PrintToString(expected);
}

} // namespace tesk::measurement
