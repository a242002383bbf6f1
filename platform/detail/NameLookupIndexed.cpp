#include <platform/detail/NameLookup.h>

#include <platform/detail/DocumentOrder.h>

#include <OpenSG/OSGNameIndex.h>
#include <OpenSG/OSGNodeCore.h>

#include <unordered_map>
#include <unordered_set>

namespace tesk::platform::detail {

namespace {

/// Finds the first bearer of a name from all its bearers, which the index gives in no order: climbs from each to the
/// root, then goes down the ways that were climbed, first children first.
///
/// A walk of the scene takes a step for every bearer. Where a large part of the scene bears the name the walk soon
/// meets the first, and the others need not be looked at.
class NameSearch {
public:
    NameSearch(const osg::NodePtr& searchedRoot, const std::string& searchedName)
        : root(searchedRoot), name(searchedName), walk(searchedRoot) {}

    osg::NodePtr find();

private:
    /// The way down from a node that some bearer's way up went through.
    struct Branch {
        osg::NodePtr child;
        bool forks;
    };

    /// True when the walk has met the first bearer.
    bool consider(const osg::NodePtr& node);
    void climb(const osg::NodePtr& bearer);
    osg::NodePtr descend() const;
    osg::NodePtr getFirstWay(const osg::NodePtr& fork) const;

    osg::NodePtr root;
    const std::string& name;
    DocumentOrder walk;
    std::unordered_set<const osg::Node*> bearers;
    std::unordered_map<const osg::Node*, Branch> branches;
};

osg::NodePtr NameSearch::find() {
    for (osg::AttachmentContainer* container : osg::NameIndex::find(name)) {
        if (auto* node = dynamic_cast<osg::Node*>(container)) {
            if (consider(osg::NodePtr(*node))) return walk.getNode();
        } else if (auto* core = dynamic_cast<osg::NodeCore*>(container)) {
            for (const osg::NodePtr& parent : core->getParents())
                if (consider(parent)) return walk.getNode();
        }
    }
    return descend();
}

bool NameSearch::consider(const osg::NodePtr& node) {
    if (walk.advance() && bearsName(walk.getNode(), name)) return true;
    // A node's own name hides its core's.
    if (bearsName(node, name)) climb(node);
    return false;
}

void NameSearch::climb(const osg::NodePtr& bearer) {
    bearers.insert(bearer.getCPtr());
    osg::NodePtr child = bearer;
    for (osg::NodePtr node = child->getParent(); node != osg::NullFC; node = node->getParent()) {
        const auto [branch, isNew] = branches.try_emplace(node.getCPtr(), Branch{child, false});
        if (!isNew) {
            branch->second.forks |= branch->second.child != child;
            return;
        }
        child = node;
    }
}

osg::NodePtr NameSearch::descend() const {
    osg::NodePtr node = root;
    do {
        const auto branch = branches.find(node.getCPtr());
        // Happens at the root only: whatever leads on from there leads to a bearer.
        if (branch == branches.end()) return osg::NullFC;
        node = branch->second.forks ? getFirstWay(node) : branch->second.child;
    } while (bearers.count(node.getCPtr()) == 0);
    return node;
}

osg::NodePtr NameSearch::getFirstWay(const osg::NodePtr& fork) const {
    osg::UInt32 index = 0;
    const auto leadsOn = [this](const osg::Node* node) { return bearers.count(node) > 0 || branches.count(node) > 0; };
    while (!leadsOn(fork->getChild(index).getCPtr())) ++index;
    return fork->getChild(index);
}

} // namespace

osg::NodePtr findNamedNode(const osg::NodePtr& root, const std::string& name) { return NameSearch(root, name).find(); }

} // namespace tesk::platform::detail
