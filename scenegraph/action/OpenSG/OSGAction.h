#pragma once

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGTypedFunctors.h>

#include <functional>
#include <vector>

namespace osg {

/// The core of the node that an action is at.
typedef NodeCorePtr CNodePtr;

/// A walk over a scene, depth first, that calls functors when it enters and leaves a node.
///
/// Each kind of action has functors by the exact type of the core; at a core whose own type has none the walk just goes
/// on to the children. A node is passed over with its subtree when its mask and the action's have no bit in common, and
/// so is a null child; a node without a core ends the walk. Any depth is walked without recursion.
///
/// An enter functor continues with the children, skips them, or quits the walk. Before it continues it may choose
/// which nodes are visited in place of the children: useNodeList(), then addNode() for each. The leave functor is
/// called after the children, also when the walk was quit below; not when the enter functor itself skipped or quit.
class OSG_SYSTEMLIB_DLLMAPPING Action {
public:
    enum ResultE { Continue, Skip, Quit };
    typedef std::function<ResultE(CNodePtr&, Action*)> Functor;

    virtual ~Action();
    Action(const Action&) = delete;
    Action& operator=(const Action&) = delete;

    /// Walks over the subtree: Quit when a functor said so, when the root is null or when a node had no core, and
    /// Continue otherwise.
    virtual ResultE apply(const NodePtr& root);

    /// The node that the walk is at; what a functor was called for.
    NodePtr getActNode() const { return actNode; }

    /// Replaces the children of the current node by those that addNode() names, possibly none.
    void useNodeList() { usesNodeList = true; }
    /// Adds a node to those that are visited in place of the current node's children.
    void addNode(const NodePtr& node);

    UInt32 getTravMask() const { return travMask; }
    void setTravMask(UInt32 mask) { travMask = mask; }

protected:
    /// What one kind of action does at cores, by their exact type.
    class OSG_SYSTEMLIB_DLLMAPPING FunctorTable {
    public:
        void setEnter(const FieldContainerType& type, const Functor& functor) { set(enter, type, functor); }
        void setLeave(const FieldContainerType& type, const Functor& functor) { set(leave, type, functor); }
        /// Continue when there is no functor for the core's type.
        ResultE callEnter(CNodePtr core, Action* action) const { return call(enter, core, action); }
        ResultE callLeave(CNodePtr core, Action* action) const { return call(leave, core, action); }

    private:
        static void set(std::vector<Functor>& functors, const FieldContainerType& type, const Functor& functor);
        static ResultE call(const std::vector<Functor>& functors, CNodePtr& core, Action* action);

        std::vector<Functor> enter;
        std::vector<Functor> leave;
    };

    Action() = default;

    /// The functors of this kind of action.
    virtual const FunctorTable& getFunctors() const = 0;
    /// Called before the walk; anything but Continue cancels it.
    virtual ResultE start() { return Continue; }
    /// Called after the walk with its result; gives that of the action.
    virtual ResultE stop(ResultE result) { return result; }

private:
    struct Visit;

    ResultE walk(const NodePtr& root);
    /// Continue or Quit; when the walk goes on below the node, its visit is added to the open ones.
    ResultE enterNode(const NodePtr& node, std::vector<Visit>& open);
    ResultE leaveNode(const NodePtr& node);

    NodePtr actNode;
    bool usesNodeList = false;
    std::vector<NodePtr> nodeList;
    UInt32 travMask = 0xffffffff;
};

} // namespace osg
