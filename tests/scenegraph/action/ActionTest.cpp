#include <OpenSG/OSGAction.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGTransform.h>

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace {

using osg::Action;

/// Writes down which groups it enters (+) and leaves (-), and does there what it was told to.
class RecordingAction : public Action {
public:
    std::string record;
    std::map<std::string, ResultE> results;

private:
    const FunctorTable& getFunctors() const override {
        static FunctorTable functors;
        functors.setEnter(osg::Group::getClassType(),
                          [](osg::CNodePtr&, Action* action) { return visit('+', action); });
        functors.setLeave(osg::Group::getClassType(),
                          [](osg::CNodePtr&, Action* action) { return visit('-', action); });
        return functors;
    }
    static ResultE visit(char sign, Action* action) {
        RecordingAction& self = *static_cast<RecordingAction*>(action);
        const std::string step = sign + std::string(osg::getName(self.getActNode()));
        self.record += step;
        return self.results[step];
    }
};

/// r has the children a and b, a has c and d, b has e. The record ends with "!" when the action quit.
class ActionTest : public testing::Test {
protected:
    ActionTest() {
        for (const auto& [parent, child] : {std::pair("r", "a"), {"r", "b"}, {"a", "c"}, {"a", "d"}, {"b", "e"}})
            node(parent)->addChild(node(child));
    }
    osg::NodePtr node(const std::string& name) {
        osg::osgInit(0, nullptr);
        osg::NodeRefPtr& found = nodes[name];
        if (!found) found = osg::makeCoredNode<osg::Group>();
        osg::setName(found.get(), name);
        return found;
    }
    std::string apply() {
        action.record.clear();
        const Action::ResultE result = action.apply(node("r"));
        return action.record + (result == Action::Quit ? "!" : "");
    }
    std::map<std::string, osg::NodeRefPtr> nodes;
    RecordingAction action;
};

TEST_F(ActionTest, FollowsTheResultsOfFunctors) {
    const struct {
        const char* step;
        Action::ResultE result;
        const char* record;
    } rows[] = {
        {"+r", Action::Continue, "+r+a+c-c+d-d-a+b+e-e-b-r"},
        {"+a", Action::Skip, "+r+a+b+e-e-b-r"},
        {"+a", Action::Quit, "+r+a-r!"},
        {"+c", Action::Quit, "+r+a+c-a-r!"},
        {"+r", Action::Skip, "+r"},
        {"+r", Action::Quit, "+r!"},
        {"-c", Action::Quit, "+r+a+c-c-a-r!"},
        {"-a", Action::Skip, "+r+a+c-c+d-d-a+b+e-e-b-r"},
        {"-b", Action::Quit, "+r+a+c-c+d-d-a+b+e-e-b-r!"},
    };
    for (const auto& row : rows) {
        action.results = {{row.step, row.result}};
        EXPECT_EQ(apply(), row.record) << row.step << ' ' << row.result;
    }
}

TEST_F(ActionTest, EndsAtANodeWithoutCoreThatItsMaskShows) {
    const osg::NodePtr bare = osg::Node::create();
    node("a")->insertChild(1, bare);
    EXPECT_EQ(apply(), "+r+a+c-c-a-r!");
    bare->setTravMask(2);
    action.setTravMask(1);
    EXPECT_EQ(apply(), "+r+a+c-c+d-d-a+b+e-e-b-r");
    EXPECT_EQ(action.apply(osg::NullFC), Action::Quit);
}

TEST_F(ActionTest, WalksDownADeepChainOfCoresWithoutFunctors) {
    osg::NodePtr bottom = node("e");
    for (int depth = 0; depth < 100000; ++depth) {
        const osg::NodePtr below = osg::makeCoredNode<osg::Transform>();
        bottom->addChild(below);
        bottom = below;
    }
    bottom->addChild(node("d"));
    EXPECT_EQ(apply(), "+r+a+c-c-a+b+e+d-d-e-b-r");
}

} // namespace
