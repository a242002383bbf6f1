#include <measurement/model/CircleMeasurement.h>
#include <measurement/model/MeasurementManager.h>
#include <measurement/model/PointPointMeasurement.h>
#include <measurement/visualisation/MeasurementVisualisation.h>

#include <support/Scenes.h>

#include <gtest/gtest.h>

#include <optional>
#include <utility>

namespace tesk::test {

using measurement::Measurement;

static const bool started = osg::osgInit(0, nullptr);

/// Logs its name, a + while its node is attached, and the call with the measurement's description.
class LoggingVisualisation : public measurement::MeasurementVisualisation {
public:
    LoggingVisualisation(std::string& sharedLog, const char* ownName, const SceneNode& node)
        : log(sharedLog), name(ownName), root(node) {}

    void setVisible(bool) override {}
    bool isVisible() const override { return true; }
    osg::NodePtr getVisualisation() override { return root; }
    void addMeasurement(const Measurement* measurement) override { write(" add ", measurement); }
    void removeMeasurement(const Measurement* measurement) override { write(" remove ", measurement); }
    void updateMeasurement(const Measurement* measurement) override { write(" update ", measurement); }

private:
    void write(const char* call, const Measurement* measurement) {
        const bool isAttached = root && root->getParent();
        log += name + (isAttached ? "+" : "") + call + (measurement ? measurement->getDescription() : "null") + "; ";
    }

    std::string& log;
    std::string name;
    SceneNode root;
};

class MeasurementManagerTest : public testing::Test {
protected:
    void expectLog(const char* text) { EXPECT_EQ(std::exchange(log, ""), text); }

    std::string log;
    LoggingVisualisation a{log, "a", group({})}, b{log, "b", SceneNode()};
    const SceneNode root = group({});
    std::optional<measurement::MeasurementManager> manager{std::in_place};
};

TEST_F(MeasurementManagerTest, TellsVisualisationsOfEverythingInOrder) {
    manager->addVisualisation(&a);
    manager->addVisualisation(&b);
    const auto first = manager->createPointPointMeasurement();
    // The updates come from the measurement's constructor.
    expectLog("a+ update ; b update ; a+ add ; b add ; ");
    first->setDescription("1");
    const auto second = manager->createCircleMeasurement();
    second->setDescription("2");
    second->setName("bore");
    expectLog("a+ update 1; b update 1; a+ update ; b update ; a+ add ; b add ; "
              "a+ update 2; b update 2; a+ update 2; b update 2; ");
    manager->updateVisualisations();
    expectLog("a+ update 1; a+ update 2; b update 1; b update 2; ");
    manager->removeVisualisation(&a);
    manager->addVisualisation(&a);
    expectLog("a remove 1; a remove 2; a add 1; a add 2; ");
    first->setNode1(root);
    manager->removeMeasurement(first);
    manager->removeMeasurement(new measurement::PointPointMeasurement(nullptr));
    manager->removeMeasurement(nullptr);
    expectLog("b remove 1; a+ remove 1; b remove ; a+ remove ; b remove null; a+ remove null; ");
    EXPECT_EQ(root.get().getRefCount(), 1);
    EXPECT_EQ(manager->getMeasurements(), std::list<Measurement*>{second});
    manager->removeAllMeasurements();
    expectLog("b remove 2; a+ remove 2; ");
}

TEST_F(MeasurementManagerTest, HangsItsGroupBelowTheRoot) {
    manager->addVisualisation(&a);
    const osg::NodePtr visualisations = a.getVisualisation()->getParent();
    manager->setVisualisationRoot(root);
    root->addChild(group({}));
    // The second time must not move the group behind the other child.
    manager->setVisualisationRoot(root);
    ASSERT_TRUE(root->getNChildren() == 2 && root->getChild(0) == visualisations);
    manager->enableVisualisations(false);
    EXPECT_EQ(visualisations->getTravMask(), 0u);
    manager->enableVisualisations(true);
    EXPECT_EQ(visualisations->getTravMask(), 0xFFFFFFFFu);
    // The new root's only reference is the old root's, whose only one is the manager's.
    manager->setVisualisationRoot(group({group({})}));
    manager->setVisualisationRoot(visualisations->getParent()->getChild(0));
    EXPECT_TRUE(root->getNChildren() == 1 && visualisations->getParent()->getParent() == osg::NullFC);
    manager->setVisualisationRoot(root);
    manager->createPointPointMeasurement()->setNode1(root);
    log.clear();
    manager.reset();
    expectLog("a remove ; ");
    EXPECT_TRUE(root->getNChildren() == 1 && root.get().getRefCount() == 1);
}

} // namespace tesk::test
