#include <apps/measure/SceneCatalogue.h>

#include <measurement/scene/ChildEnumerator.h>
#include <platform/tkScenegraph.h>
#include <rendering/import/UniqueNames.h>

#include <OpenSG/OSGSimpleAttachments.h>

#include <filesystem>
#include <utility>

namespace tesk::measure {

namespace {

std::string nameOf(const osg::NodePtr& node) {
    const char* name = osg::getName(node);
    return name != nullptr ? name : "";
}

} // namespace

SceneCatalogue::SceneCatalogue(std::vector<SceneFile> sceneFiles) : files(std::move(sceneFiles)) {
    const osg::NodePtr sceneRoot = tkScenegraph::getRoot();
    for (std::size_t file = 0; file < files.size(); ++file) {
        const osg::NodePtr root = files[file].root;
        if (nameOf(root).empty()) osg::setName(root, stem(files[file].path));
        addNodes(file);
        const osg::CPEditor editor(sceneRoot, osg::Node::ChildrenFieldMask);
        sceneRoot->addChild(root);
    }
    rendering::makeNamesUnique(sceneRoot);
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        nodes[i].name = nameOf(nodes[i].node);
        nodesByName.emplace(nodes[i].name, i);
    }
    sumUpContent();
}

SceneCatalogue::~SceneCatalogue() {
    const osg::NodePtr sceneRoot = tkScenegraph::getRoot();
    const osg::CPEditor editor(sceneRoot, osg::Node::ChildrenFieldMask);
    for (const SceneFile& file : files) {
        osg::NodePtr root = file.root;
        sceneRoot->subChild(root);
    }
}

void SceneCatalogue::addNodes(std::size_t file) {
    fileRoots.push_back(nodes.size());
    // A stack of its own: no file is too deep for it.
    std::vector<CatalogueNode> pending(1);
    pending.back().node = files[file].root;
    while (!pending.empty()) {
        CatalogueNode entry = std::move(pending.back());
        pending.pop_back();
        entry.file = file;
        entry.nameInFile = nameOf(entry.node);
        entry.content = countContent(entry.node);
        std::vector<CatalogueNode> children;
        for (measurement::ChildEnumerator child(entry.node); child.hasNext();) {
            CatalogueNode& added = children.emplace_back();
            added.node = child.next();
            added.parent = nodes.size();
            added.depth = entry.depth + 1;
        }
        pending.insert(pending.end(), children.rbegin(), children.rend());
        nodes.push_back(std::move(entry));
    }
}

const CatalogueNode* SceneCatalogue::findNode(const std::string& name) const {
    const auto found = nodesByName.find(name);
    return found != nodesByName.end() ? &nodes[found->second] : nullptr;
}

std::vector<std::string> SceneCatalogue::getRenamings() const {
    std::vector<std::string> renamings;
    for (const CatalogueNode& node : nodes) {
        if (node.nameInFile.empty() || node.name == node.nameInFile) continue;
        renamings.push_back(files[node.file].path + ": '" + node.nameInFile + "' is called '" + node.name + "' here");
    }
    return renamings;
}

void SceneCatalogue::sumUpContent() {
    // Children come after their parents, so from the back every node is complete when its parent takes it in.
    for (std::size_t i = nodes.size(); i-- > 0;) {
        if (!nodes[i].isFileRoot()) nodes[nodes[i].parent].content += nodes[i].content;
    }
}

bool SceneCatalogue::isSameOrBelow(const CatalogueNode& node, const CatalogueNode& ancestor) const {
    const CatalogueNode* current = &node;
    while (current != &ancestor && !current->isFileRoot()) current = &nodes[current->parent];
    return current == &ancestor;
}

std::string baseName(const std::string& path) { return std::filesystem::path(path).filename().string(); }

std::string stem(const std::string& path) { return std::filesystem::path(path).stem().string(); }

} // namespace tesk::measure
