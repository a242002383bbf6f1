#pragma once

#include <apps/measure/NodeContent.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace tesk::measure {

/// A file and the subtree made of it.
struct SceneFile {
    /// As the command line spells it.
    std::string path;
    osg::RefPtr<osg::NodePtr> root;
};

/// One node of the catalogue. Indices count the catalogue's nodes.
struct CatalogueNode {
    static constexpr std::size_t noParent = static_cast<std::size_t>(-1);

    osg::NodePtr node;
    std::size_t file = 0;
    std::size_t parent = noParent;
    /// 0 for the root of a file.
    std::size_t depth = 0;
    /// The name that no other node of the scene has.
    std::string name;
    /// The name before it was told apart from those of other files.
    std::string nameInFile;
    /// Of the node and everything below it.
    NodeContent content;

    bool isFileRoot() const { return parent == noParent; }
};

/// The nodes of the loaded files in document order: each file's root, then its children.
///
/// Hangs the files below the scene's root as long as it lives, and makes the names of all nodes unique: whatever a
/// node is called in the catalogue, the scene finds it by that name. A root without a name is named after its file.
/// The same path twice gives two subtrees with names of their own.
class SceneCatalogue {
public:
    explicit SceneCatalogue(std::vector<SceneFile> files);
    ~SceneCatalogue();
    SceneCatalogue(const SceneCatalogue&) = delete;
    SceneCatalogue& operator=(const SceneCatalogue&) = delete;

    const std::vector<SceneFile>& getFiles() const { return files; }
    const std::vector<CatalogueNode>& getNodes() const { return nodes; }
    const CatalogueNode& getFileRoot(std::size_t file) const { return nodes[fileRoots[file]]; }
    /// The node of that unique name, which is also the one that the scene finds; null when there is none.
    const CatalogueNode* findNode(const std::string& name) const;
    /// Which nodes lost the name that they have in their file, one line each.
    std::vector<std::string> getRenamings() const;

    /// Whether one node is the other or lies below it.
    bool isSameOrBelow(const CatalogueNode& node, const CatalogueNode& ancestor) const;

private:
    void addNodes(std::size_t file);
    void sumUpContent();

    std::vector<SceneFile> files;
    std::vector<CatalogueNode> nodes;
    std::vector<std::size_t> fileRoots;
    std::unordered_map<std::string, std::size_t> nodesByName;
};

/// What a path ends in, without the folders; and that without its extension.
std::string baseName(const std::string& path);
std::string stem(const std::string& path);

} // namespace tesk::measure
