#include <measurement/model/ObjectObjectMeasurement.h>
#include <measurement/model/PointObjectMeasurement.h>
#include <measurement/model/PointPointMeasurement.h>
#include <platform/tkScenegraph.h>

#include <OpenSG/OSGSimpleAttachments.h>

#include <support/Scenes.h>

#include <gtest/gtest.h>

#include <optional>

namespace tesk::test {

using measurement::PointPointMeasurement;

static const bool started = osg::osgInit(0, nullptr);

TEST(AbstractMeasurement, IsNamedAfterItsNodes) {
    const SceneNode none, wheel = named(group({}), "wheel"), hub = group({}), coreless(osg::Node::create());
    osg::setName(hub->getCore(), "hub");
    const struct {
        SceneNode node1, node2, node3;
        const char* name;
    } rows[] = {
        {wheel, none, wheel, "given"},
        {none, wheel, wheel, "given"},
        {wheel, hub, none, "wheel  to  hub"},
        {wheel, group({}), hub, "wheel  to  Group  to  hub"},
        {coreless, named(group({}), ""), none, "  to  "},
    };
    for (const auto& row : rows) {
        PointPointMeasurement measurement(nullptr);
        measurement.setName("given");
        measurement.setNode3(row.node3);
        measurement.setPoint1(row.node1, {0, 0, 0});
        measurement.setPoint2(row.node2, {0, 0, 0});
        EXPECT_EQ(measurement.getName(), row.name);
    }
}

TEST(AbstractMeasurement, HoldsItsNodes) {
    std::optional<PointPointMeasurement> measurement(nullptr);
    measurement->setNode1(group({group({})}));
    // The child's only other reference is its parent's, which the measurement lets go.
    measurement->setNode1(measurement->getNode1()->getChild(0));
    const osg::UInt32 child = measurement->getNode1().getFieldContainerId();
    EXPECT_TRUE(measurement->getNode1()->getParent() == osg::NullFC);
    measurement.reset();
    EXPECT_TRUE(osg::FieldContainerFactory::the()->getContainer(child) == osg::NullFC);
}

TEST(AbstractMeasurement, MakesPathsThatEndBelowTheRoots) {
    using Path = std::vector<osg::NodePtr>;
    const auto path = [](const osg::NodePtr& node) {
        const auto held = PointPointMeasurement::createNodePath(node);
        return Path(held.begin(), held.end());
    };
    const SceneNode leaf = group({}), middle = group({leaf}), top = group({middle});
    EXPECT_TRUE(path(leaf) == Path({leaf, middle, top}));
    tkScenegraph::getRoot()->addChild(top);
    EXPECT_TRUE(path(leaf) == Path({leaf, middle, top}));
    EXPECT_TRUE(path(tkScenegraph::getRoot()) == Path({tkScenegraph::getRoot()}));
    tkScenegraph::getInternalRoot()->addChild(top);
    EXPECT_TRUE(path(leaf) == Path({leaf}));
    tkScenegraph::getInternalRoot()->subChild(top.get());
}

template <class Kind>
static void expect(const Kind& measurement, const osg::Pnt3f& point1, const osg::Pnt3f& point2, float value) {
    EXPECT_EQ(measurement.getPoint1(), point1);
    EXPECT_EQ(measurement.getPoint2(), point2);
    EXPECT_EQ(measurement.getVector(), point1 - point2);
    EXPECT_EQ(measurement.getValue(), value);
}

TEST(PointPointMeasurement, MeasuresBetweenThePoints) {
    PointPointMeasurement measurement(nullptr);
    measurement.setPoint1(osg::NullFC, {2, 3, 6});
    expect(measurement, {2, 3, 6}, {0, 0, 0}, 7.0f);
}

TEST(PointObjectMeasurement, MeasuresToTheObjectOnceBothAreThere) {
    const SceneNode square = quad(1.0f);
    const osg::Pnt3f picked(0.25f, 0.5f, 5);
    measurement::PointObjectMeasurement measurement(nullptr);
    measurement.setPoint(square, picked);
    expect(measurement, picked, picked, 0.0f);
    measurement.setNode(square);
    expect(measurement, picked, {0.25f, 0.5f, 1}, 4.0f);
    measurement.setPoint(osg::NullFC, {0, 0, 0});
    expect(measurement, {0, 0, 0}, {0, 0, 0}, 0.0f);
}

TEST(ObjectObjectMeasurement, MeasuresBetweenTheObjects) {
    const SceneNode square = quad(1.0f), raised = transform(translated(4, 0, 0), {quad(5.0f)});
    measurement::ObjectObjectMeasurement measurement(nullptr, square, raised);
    // Which of the equally close points on the edges are taken is the calculator's affair.
    expect(measurement, {1, measurement.getPoint1()[1], 1}, {4, measurement.getPoint2()[1], 5}, 5.0f);
    measurement.setNode2(osg::NullFC);
    measurement.update();
    expect(measurement, {0, 0, 0}, {0, 0, 0}, 0.0f);
}

} // namespace tesk::test
