#include "Geometries.h"

#include <gtest/gtest.h>

#include <string>

namespace {

template <class Property, class Value> auto storedAfterPush(const Value& value) {
    osg::osgInit(0, nullptr);
    const osg::RefPtr<typename Property::Ptr> property(Property::create());
    property->push_back(value);
    return property->getField()[0];
}

template <class Property, class Stored> auto readBack(const Stored& stored) {
    osg::osgInit(0, nullptr);
    const osg::RefPtr<typename Property::Ptr> property(Property::create());
    property->getFieldPtr()->push_back(stored);
    return property->getValue(0);
}

TEST(GeoProperty, ConvertsBetweenStoredAndGenericValues) {
    const osg::Pnt3f position(1, 2, 3);
    EXPECT_EQ(storedAfterPush<osg::GeoPositions4f>(position), osg::Pnt4f(1, 2, 3, 1));
    EXPECT_EQ(storedAfterPush<osg::GeoPositions4d>(position), osg::Pnt4d(1, 2, 3, 1));
    EXPECT_EQ(storedAfterPush<osg::GeoPositions2f>(position), osg::Pnt2f(1, 2));
    EXPECT_EQ(readBack<osg::GeoPositions4f>(osg::Pnt4f(1, 2, 3, 2)), position) << "w is dropped";
    EXPECT_EQ(readBack<osg::GeoPositions2f>(osg::Pnt2f(1, 2)), osg::Pnt3f(1, 2, 0));
    EXPECT_EQ(readBack<osg::GeoPositions3d>(osg::Pnt3d(1, 2, 3)), position);

    const osg::Color3f color(0, 0.5f, 1);
    EXPECT_EQ(storedAfterPush<osg::GeoColors4f>(color), osg::Color4f(0, 0.5f, 1, 1));
    EXPECT_EQ(storedAfterPush<osg::GeoColors3ub>(color), osg::Color3ub(0, 127, 255));
    EXPECT_EQ(storedAfterPush<osg::GeoColors4ub>(color), osg::Color4ub(0, 127, 255, 255));
    EXPECT_EQ(storedAfterPush<osg::GeoColors3ub>(osg::Color3f(-1, std::nanf(""), 9)), osg::Color3ub(0, 0, 255));
    EXPECT_EQ(readBack<osg::GeoColors4ub>(osg::Color4ub(0, 51, 255, 7)), osg::Color3f(0, 0.2f, 1));

    EXPECT_EQ(storedAfterPush<osg::GeoIndicesUI16>(65538u), 2);
    EXPECT_EQ(readBack<osg::GeoPLengthsUI8>(osg::UInt8(200)), 200u);
}

TEST(GeoProperty, KnowsItsTypeAndAncestors) {
    osg::osgInit(0, nullptr);
    const osg::RefPtr<osg::GeoPositions3fPtr> positions(osg::GeoPositions3f::create());
    std::string chain;
    for (const osg::FieldContainerType* type = &positions->getType(); type; type = type->getParent())
        chain += std::string(type->getCName()) + " ";
    EXPECT_EQ(chain, "GeoPositions3f GeoPositions Attachment FieldContainer ");
    EXPECT_EQ(osg::GeoPositions3f::GeoPropDataFieldMask, 0x8u);

    const osg::GeoPositionsPtr abstract = positions;
    EXPECT_TRUE(osg::GeoPositions3fPtr::dcast(abstract) == positions);
    EXPECT_TRUE(osg::GeoPositions4fPtr::dcast(abstract) == osg::NullFC);
}

class RecordingGeometry : public osg::Geometry {
public:
    void changed(osg::BitVector fields, osg::UInt32 origin) override {
        changedFields = fields;
        changedOrigin = origin;
    }
    osg::BitVector changedFields = 0;
    osg::UInt32 changedOrigin = 0;
};

TEST(GeoProperty, TellsEveryUserWhichOfItsFieldsChanged) {
    osg::osgInit(0, nullptr);
    auto *const first = new RecordingGeometry, *const second = new RecordingGeometry;
    const osg::GeometryRefPtr holdFirst{osg::GeometryPtr(*first)}, holdSecond{osg::GeometryPtr(*second)};
    const osg::GeoColorsPtr colors = osg::GeoColors3f::create();
    first->setColors(colors);
    for (auto* geometry : {first, second}) geometry->setSecondaryColors(colors);
    EXPECT_EQ(colors->getParents().size(), 3u) << "one entry a use";

    osg::endEditCP(colors, osg::FieldBits::NoField);
    EXPECT_EQ(first->changedFields, osg::Geometry::ColorsFieldMask | osg::Geometry::SecondaryColorsFieldMask);
    EXPECT_EQ(second->changedFields, osg::Geometry::SecondaryColorsFieldMask);
    EXPECT_EQ(second->changedOrigin, osg::ChangedOrigin::Child);
}

} // namespace
