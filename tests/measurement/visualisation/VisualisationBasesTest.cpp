#include <measurement/model/PointPointMeasurement.h>
#include <measurement/visualisation/AbstractMeasurementVisualisation.h>
#include <measurement/visualisation/SingleMeasurementVisualisation.h>
#include <platform/tkNodeUtils.h>

#include <OpenSG/OSGGroup.h>

#include <support/Scenes.h>

#include <gtest/gtest.h>

#include <utility>

namespace tesk::test {

using measurement::Measurement;

static const bool started = osg::osgInit(0, nullptr);

struct NamedMeasurement : measurement::PointPointMeasurement {
    explicit NamedMeasurement(const char* text) : PointPointMeasurement(nullptr) { setName(text); }
};

/// Shows measurements that have a name and logs its calls.
template <class Base> class VisualisationTest : public testing::Test, public Base {
protected:
    osg::NodePtr createVisualisation(const Measurement* measurement) override {
        log += "create " + measurement->getName() + "; ";
        return measurement->getName().empty() ? osg::NodePtr() : osg::makeCoredNode<osg::Group>();
    }
    void removeVisualisation(const Measurement* measurement, const osg::NodePtr& node) override {
        EXPECT_TRUE(node->getCore() != osg::NullFC && node->getParent() == root);
        log += "remove " + measurement->getName() + "; ";
    }
    void updateVisualisation(const Measurement* measurement, const osg::NodePtr& node) override {
        EXPECT_TRUE(node->getParent() == root);
        log += "update " + measurement->getName() + "; ";
    }
    void expectLog(const char* text) { EXPECT_EQ(std::exchange(log, ""), text); }

    const osg::NodePtr root = this->getVisualisation();
    // Members stand in memory in the order of their declaration.
    const NamedMeasurement first{"first"}, second{"second"}, nameless{""};
    std::string log;
};

using AbstractVisualisationTest = VisualisationTest<measurement::AbstractMeasurementVisualisation>;
using SingleVisualisationTest = VisualisationTest<measurement::SingleMeasurementVisualisation>;

TEST_F(AbstractVisualisationTest, ShowsEveryMeasurementItSupports) {
    for (const auto* measurement : {&second, &nameless, &first}) addMeasurement(measurement);
    updateMeasurement(&nameless);
    setPrecision(3);
    expectLog("create second; create ; create first; update first; update second; ");
    EXPECT_TRUE(tkNodeUtils::isAuxiliaryNode(root->getChild(0)));
    // What others hold of a subtree is taken apart all the same.
    const SceneNode secondNode(root->getChild(0));
    for (const auto* measurement : {&nameless, &second, &second}) removeMeasurement(measurement);
    expectLog("remove second; ");
    EXPECT_TRUE(secondNode.get().getRefCount() == 1 && secondNode->getCore() == osg::NullFC);
    // Another subtree for the same measurement leaves the former behind.
    addMeasurement(&first);
    EXPECT_TRUE(root->getNChildren() == 2 && getVisualisations().at(&first) == root->getChild(1));
}

TEST_F(AbstractVisualisationTest, IsVisibleWithTheFullTraversalMaskOnly) {
    root->setTravMask(0x7FFFFFFF);
    EXPECT_FALSE(isVisible());
    setVisible(true);
    EXPECT_EQ(root->getTravMask(), 0xFFFFFFFFu);
}

TEST_F(SingleVisualisationTest, ShowsTheActiveMeasurement) {
    addMeasurement(&first);
    setActiveMeasurement(&first);
    setActiveMeasurement(&first);
    updateMeasurement(&second);
    updateMeasurement(&first);
    setPrecision(2);
    expectLog("create first; update first; update first; ");
    EXPECT_FALSE(tkNodeUtils::isAuxiliaryNode(root->getChild(0)));
    const SceneNode firstNode(getActiveVisualisation());
    setActiveMeasurement(&second);
    removeMeasurement(&first);
    removeMeasurement(&second);
    expectLog("remove first; create second; remove second; ");
    EXPECT_TRUE(firstNode.get().getRefCount() == 1 && firstNode->getCore() != osg::NullFC);
    EXPECT_TRUE(getActiveMeasurement() == nullptr && root->getNChildren() == 0);
    setActiveMeasurement(&nameless);
    setActiveMeasurement(nullptr);
    expectLog("create ; ");
}

} // namespace tesk::test
