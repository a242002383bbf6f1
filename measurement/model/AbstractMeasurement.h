#pragma once

#include <measurement/model/Measurement.h>

#include <OpenSG/OSGRefPtr.h>

#include <vector>

namespace tesk::measurement {

class MeasurementManager;

/// What all kinds of measurement have in common: their manager, up to three nodes with the paths of two, a name and a
/// description.
///
/// A measurement holds a reference to each of its nodes, so that a node outlives its removal from the scene. The
/// manager is not owned and may be null; then nobody is told of changes.
class TESK_MEASUREMENT_EXPORT AbstractMeasurement : public Measurement {
public:
    explicit AbstractMeasurement(MeasurementManager* owner);
    AbstractMeasurement(MeasurementManager* owner, const osg::NodePtr& firstNode, const osg::NodePtr& secondNode);

    /// Names the measurement after its nodes and tells the manager. Kinds call this last, when their result stands.
    ///
    /// The name becomes "first  to  second" or "first  to  second  to  third", from NodeUtils::getName() of the nodes.
    /// As long as the first or the second node is missing the name stays as it is; once both are there, a name given
    /// with setName() does not outlive the update.
    void update() override;
    osg::NodePtr getNode1() const override { return node1; }
    osg::NodePtr getNode2() const override { return node2; }
    osg::NodePtr getNode3() const override { return node3; }
    const std::string& getName() const override { return name; }
    const std::string& getDescription() const override { return description; }

    MeasurementManager* getManager() const { return manager; }
    /// (0, 0, 0); kinds with points declare their own.
    osg::Vec3f getVector() const { return osg::Vec3f(0.0f, 0.0f, 0.0f); }

    /// Stores the node; call update() to measure.
    void setNode1(const osg::NodePtr& node);
    void setNode2(const osg::NodePtr& node);
    void setNode3(const osg::NodePtr& node);

    /// Stores the text and has the visualisations updated.
    void setName(const std::string& text);
    void setDescription(const std::string& text);

    using NodePath = std::vector<osg::RefPtr<osg::NodePtr>>;

    /// The way from a node, the first element, up to its topmost ancestor below tkScenegraph::getRoot(), the last. The
    /// root itself is in no path but its own.
    ///
    /// A node below tkScenegraph::getInternalRoot() has itself alone in its path, a node below neither root all its
    /// ancestors, the null node nothing. Every element holds a reference: a node without any that was not held before
    /// the call dies with its path.
    static NodePath createNodePath(const osg::NodePtr& node);
    const NodePath& getNodePath1() const { return nodePath1; }
    const NodePath& getNodePath2() const { return nodePath2; }
    /// Stores the path, which nothing here reads; see createNodePath().
    void setNodePath1(const NodePath& path) { nodePath1 = path; }
    void setNodePath2(const NodePath& path) { nodePath2 = path; }

private:
    void notifyManager();

    MeasurementManager* manager;
    osg::RefPtr<osg::NodePtr> node1;
    osg::RefPtr<osg::NodePtr> node2;
    osg::RefPtr<osg::NodePtr> node3;
    std::string description;
    std::string name;
    NodePath nodePath1;
    NodePath nodePath2;
};

} // namespace tesk::measurement
