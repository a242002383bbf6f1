#include "Geometries.h"

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGNode.h>

#include <gtest/gtest.h>

#include <cmath>

namespace {

using osg::Geometry;

/// Bounds of a node's volume along x; NaN when it is empty.
std::pair<float, float> extent(const osg::NodePtr& node) {
    osg::DynamicVolume volume;
    node->getWorldVolume(volume);
    if (volume.isEmpty()) return {NAN, NAN};
    osg::Pnt3f low, high;
    volume.getBounds(low, high);
    return {low[0], high[0]};
}

TEST(Geometry, CountsTheUsesOfItsProperties) {
    osg::GeometryRefPtr first = geometryOf({}), second = geometryOf({});
    const osg::GeoNormalsPtr normals = osg::GeoNormals3f::create();
    const osg::UInt32 id = normals.getFieldContainerId();
    for (const auto& geometry : {first, second, second}) geometry->setNormals(normals);
    EXPECT_EQ(normals.getRefCount(), 2) << "the same property again changes nothing";
    EXPECT_EQ(normals->getParents(), (osg::MFFieldContainerPtr{first.get(), second.get()}));

    first = osg::NullFC;
    EXPECT_EQ(normals->getParents(), osg::MFFieldContainerPtr{second.get()});
    second->setNormals(second->getNormals());
    EXPECT_EQ(normals.getRefCount(), 1);
    second->setNormals(osg::GeoNormals3f::create());
    EXPECT_TRUE(osg::FieldContainerFactory::the()->getContainer(id) == osg::NullFC) << "gone with its last user";
}

TEST(Geometry, HasTheFieldNumbersOfTheScenegraph) {
    EXPECT_EQ(osg::MaterialDrawable::MaterialFieldMask, 0x8u);
    EXPECT_EQ(Geometry::TypesFieldMask, 0x10u);
    EXPECT_EQ(Geometry::PositionsFieldMask, 0x40u);
    EXPECT_EQ(Geometry::IndicesFieldMask, 0x40000u);
    EXPECT_EQ(Geometry::VboFieldMask, 0x8000000u);
    EXPECT_TRUE(Geometry::getClassType().getParent()->getParent()->isDerivedFrom(osg::NodeCore::getClassType()));
}

TEST(Geometry, FindsTheLastMatchingSlot) {
    const auto geometry =
        geometryOf({{}, {}, 0, {}, {Geometry::MapPosition | Geometry::MapNormal, Geometry::MapNormal}});
    EXPECT_EQ(geometry->calcMappingIndex(Geometry::MapNormal), 1);
    EXPECT_EQ(geometry->calcMappingIndex(Geometry::MapPosition), 0);
    EXPECT_EQ(geometry->calcMappingIndex(Geometry::MapColor), -1);
}

TEST(Geometry, ClonesItsProperties) {
    const auto geometry = geometryOf({{GL_POINTS}, {2}, 2, {1, 0}, {Geometry::MapPosition}});
    const osg::GeometryRefPtr copy(geometry->clone());
    geometry->getPositions()->setValue(osg::Pnt3f(9, 9, 9), 1);
    EXPECT_EQ(copy->getPositions()->getValue(1), osg::Pnt3f(1, 0, 0));
    EXPECT_EQ(copy->getIndices()->getValue(0), 1u);
    EXPECT_EQ(copy->getIndexMapping(), geometry->getIndexMapping());
    EXPECT_TRUE(copy->getNormals() == osg::NullFC);
}

TEST(Geometry, BoundsThePositionsThatPrimitivesUse) {
    const osg::UInt32 huge = 4000000000u;
    const float none = NAN;
    const struct {
        const char* situation;
        Content content;
        float low, high;
    } rows[] = {
        {"fresh", {{}, {}, -1}, none, none},
        {"no types", {{}, {3}}, none, none},
        {"first of many", {{GL_TRIANGLES}, {3}, 10}, 0, 2},
        {"too short to draw", {{GL_TRIANGLES}, {2}, 10}, 0, 1},
        {"own vertices only", {{GL_TRIANGLES}, {4}, 10}, 0, 3},
        {"points", {{GL_POINTS}, {2}, 10}, 0, 1},
        {"indexed", {{GL_TRIANGLES, GL_LINES}, {3, 2}, 10, {3, 4, 5, 8, 5}}, 3, 8},
        {"second slot", {{GL_POINTS}, {2}, 10, {9, 2, 9, 4}, {Geometry::MapNormal, Geometry::MapPosition}}, 2, 4},
        {"no lengths", {{GL_POINTS, GL_POINTS}, {}, 10}, 0, 9},
        {"huge lengths", {{GL_POINTS, GL_LINES}, {huge, huge}, 10}, 0, 9},
        {"indices without position", {{GL_POINTS}, {3}, 10, {10, huge, 4}}, 4, 4},
    };
    for (const auto& row : rows) {
        const osg::NodeRefPtr node(osg::makeNodeFor(geometryOf(row.content).get()));
        node->addChild(osg::makeNodeFor(geometryOf({{GL_POINTS}, {500}, 500}).get())); // counts for nothing
        const auto [low, high] = extent(node);
        EXPECT_TRUE(std::isnan(row.low) ? std::isnan(low) : low == row.low && high == row.high)
            << row.situation << ": " << low << " to " << high;
    }
}

TEST(Geometry, RefreshesVolumesWhenPositionsChange) {
    const auto first = geometryOf({{GL_POINTS}, {2}, 4}), second = geometryOf({{GL_POINTS}, {1}, -1});
    const osg::GeoPositionsPtr positions = first->getPositions();
    second->setPositions(positions);
    const osg::NodeRefPtr root(osg::makeCoredNode<osg::Group>());
    for (const auto& geometry : {first, first, second}) root->addChild(osg::makeNodeFor(geometry.get()));
    const auto expectExtents = [&](float firstLow, float firstHigh, float secondHigh, const char* after) {
        for (osg::UInt32 child : {0u, 1u})
            EXPECT_EQ(extent(root->getChild(child)), std::pair(firstLow, firstHigh)) << after;
        EXPECT_EQ(extent(root->getChild(2)).second, secondHigh) << after;
        EXPECT_EQ(extent(root).second, firstHigh) << after;
    };
    expectExtents(0, 1, 0, "start");
    positions->setValue(osg::Pnt3f(5, 0, 0), 0);
    expectExtents(0, 1, 0, "a value without the end of an edit");
    osg::endEditCP(positions, osg::FieldBits::NoField);
    expectExtents(1, 5, 5, "the end of an edit");
    first->getLengths()->setValue(4, 0);
    positions->setValue(osg::Pnt3f(7, 0, 0), 3);
    osg::endEditCP(first->getLengths());
    osg::endEditCP(first.get(), Geometry::LengthsFieldMask);
    expectExtents(1, 5, 5, "lengths");
    osg::endEditCP(first.get());
    for (osg::UInt32 child : {0u, 1u}) EXPECT_EQ(extent(root->getChild(child)).second, 7) << "all fields";

    second->setPositions(geometryOf({{}, {}, 1})->getPositions());
    EXPECT_EQ(extent(root->getChild(2)).second, 0) << "another property, without an edit";

    // Nothing left: the volume is empty and keeps its bounds.
    first->getTypes()->clear();
    osg::changedCP(positions);
    osg::DynamicVolume volume;
    root->getChild(0)->getWorldVolume(volume);
    osg::Pnt3f low, high;
    volume.getBounds(low, high);
    EXPECT_TRUE(volume.isEmpty() && volume.isValid());
    EXPECT_EQ(high[0], 7);
}

} // namespace
