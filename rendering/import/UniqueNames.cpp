#include <rendering/import/UniqueNames.h>

#include <OpenSG/OSGNodeCore.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <algorithm>
#include <cctype>
#include <unordered_map>
#include <unordered_set>

namespace tesk::rendering {

namespace {

std::string nameOf(const osg::NodePtr& node) {
    const char* const name = osg::getName(node);
    return name ? name : "";
}

std::string coreTypeName(const osg::NodePtr& node) {
    std::string name = node->getCore() == osg::NullFC ? "node" : node->getCore()->getTypeName();
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char letter) { return std::tolower(letter); });
    return name;
}

/// All nodes below root, each before its children.
std::vector<osg::NodePtr> nodesBelow(const osg::NodePtr& root) {
    std::vector<osg::NodePtr> nodes, open{root};
    while (!open.empty()) {
        const osg::NodePtr node = open.back();
        open.pop_back();
        if (node != root) nodes.push_back(node);
        for (osg::UInt32 child = node->getNChildren(); child > 0; --child) open.push_back(node->getChild(child - 1));
    }
    return nodes;
}

class NameGiver {
public:
    explicit NameGiver(const std::unordered_set<std::string>& present) : taken(present) {}

    /// The name itself, or the name with the first free number.
    std::string createUnused(const std::string& name) {
        std::string unused = name;
        unsigned& number = lastNumber[name];
        for (number = std::max(number, 1u); !taken.insert(unused).second;)
            unused = name + "-" + std::to_string(++number);
        return unused;
    }

private:
    std::unordered_set<std::string> taken;
    std::unordered_map<std::string, unsigned> lastNumber;
};

} // namespace

std::vector<std::string> makeNamesUnique(const osg::NodePtr& root) {
    if (root == osg::NullFC) return {};
    const std::vector<osg::NodePtr> nodes = nodesBelow(root);
    std::unordered_set<std::string> present{nameOf(root)};
    std::vector<osg::NodePtr> unsettled;
    for (const osg::NodePtr& node : nodes)
        if (nameOf(node).empty() || !present.insert(nameOf(node)).second) unsettled.push_back(node);

    NameGiver giver(present);
    std::vector<std::string> renamings;
    for (const osg::NodePtr& node : unsettled) {
        const std::string name = nameOf(node);
        const std::string unused = giver.createUnused(name.empty() ? coreTypeName(node) : name);
        osg::setName(node, unused);
        renamings.push_back((name.empty() ? "unnamed node" : "another " + name) + " is called " + unused);
    }
    return renamings;
}

} // namespace tesk::rendering
