#include <measurement/model/AbstractMeasurement.h>

#include <measurement/model/MeasurementManager.h>
#include <measurement/model/NodeUtils.h>
#include <measurement/model/detail/GroupNode.h>
#include <platform/tkScenegraph.h>

namespace tesk::measurement {

namespace {

std::string getNameText(const osg::NodePtr& node) {
    const char* const text = NodeUtils::getName(node);
    return text != nullptr ? text : std::string();
}

} // namespace

AbstractMeasurement::AbstractMeasurement(MeasurementManager* owner) : manager(owner) {}

AbstractMeasurement::AbstractMeasurement(MeasurementManager* owner, const osg::NodePtr& firstNode,
                                         const osg::NodePtr& secondNode)
    : manager(owner), node1(firstNode), node2(secondNode) {}

void AbstractMeasurement::update() {
    if (node1 != osg::NullFC && node2 != osg::NullFC) {
        name = getNameText(node1) + "  to  " + getNameText(node2);
        if (node3 != osg::NullFC) name += "  to  " + getNameText(node3);
    }
    notifyManager();
}

void AbstractMeasurement::setNode1(const osg::NodePtr& node) { detail::hold(node1, node); }
void AbstractMeasurement::setNode2(const osg::NodePtr& node) { detail::hold(node2, node); }
void AbstractMeasurement::setNode3(const osg::NodePtr& node) { detail::hold(node3, node); }

void AbstractMeasurement::setName(const std::string& text) {
    name = text;
    notifyManager();
}

void AbstractMeasurement::setDescription(const std::string& text) {
    description = text;
    notifyManager();
}

AbstractMeasurement::NodePath AbstractMeasurement::createNodePath(const osg::NodePtr& node) {
    const osg::NodePtr root = tkScenegraph::getRoot();
    const osg::NodePtr internalRoot = tkScenegraph::getInternalRoot();
    NodePath path;
    osg::NodePtr current = node;
    while (current != osg::NullFC) {
        path.emplace_back(current);
        current = current->getParent();
        if (current == root) break;
        if (current != osg::NullFC && current == internalRoot) return NodePath(1, path.front());
    }
    return path;
}

void AbstractMeasurement::notifyManager() {
    if (manager != nullptr) manager->updateVisualisations(this);
}

} // namespace tesk::measurement
