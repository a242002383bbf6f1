#include <apps/measure/NodeSelection.h>

#include <apps/measure/Failure.h>

#include <algorithm>
#include <cctype>
#include <numeric>
#include <vector>

namespace tesk::measure {

namespace {

using Nodes = std::vector<const CatalogueNode*>;

/// More would not be read.
constexpr std::size_t longestList = 5;

void addOnce(Nodes& nodes, const CatalogueNode& node) {
    if (std::find(nodes.begin(), nodes.end(), &node) == nodes.end()) nodes.push_back(&node);
}

template <typename Spelling>
Nodes fileRootsSpelled(const SceneCatalogue& catalogue, const std::string& text, Spelling spelling) {
    Nodes roots;
    for (std::size_t file = 0; file < catalogue.getFiles().size(); ++file) {
        if (spelling(catalogue.getFiles()[file].path) == text) addOnce(roots, catalogue.getFileRoot(file));
    }
    return roots;
}

Nodes fileRootsByPathOrBaseName(const SceneCatalogue& catalogue, const std::string& text) {
    const Nodes roots = fileRootsSpelled(catalogue, text, [](const std::string& path) { return path; });
    return roots.empty() ? fileRootsSpelled(catalogue, text, baseName) : roots;
}

Nodes fileRootsByAnySpelling(const SceneCatalogue& catalogue, const std::string& text) {
    const Nodes roots = fileRootsByPathOrBaseName(catalogue, text);
    return roots.empty() ? fileRootsSpelled(catalogue, text, stem) : roots;
}

Nodes stemsAndNodes(const SceneCatalogue& catalogue, const std::string& text) {
    Nodes found = fileRootsSpelled(catalogue, text, stem);
    for (const CatalogueNode& node : catalogue.getNodes()) {
        if (node.name == text) addOnce(found, node);
    }
    return found;
}

Nodes nodesInFile(const SceneCatalogue& catalogue, std::size_t file, const std::string& name,
                  std::string CatalogueNode::*whichName) {
    Nodes found;
    for (const CatalogueNode& node : catalogue.getNodes()) {
        if (node.file == file && node.*whichName == name) found.push_back(&node);
    }
    return found;
}

/// Paths and names may contain '#' themselves, so every one of them may be the separator.
Nodes nodesInNamedFiles(const SceneCatalogue& catalogue, const std::string& text) {
    Nodes found;
    for (std::size_t at = text.find('#'); at != std::string::npos; at = text.find('#', at + 1)) {
        const std::string name = text.substr(at + 1);
        if (name.empty()) continue;
        for (const CatalogueNode* root : fileRootsByAnySpelling(catalogue, text.substr(0, at))) {
            Nodes inFile = nodesInFile(catalogue, root->file, name, &CatalogueNode::nameInFile);
            if (inFile.empty()) inFile = nodesInFile(catalogue, root->file, name, &CatalogueNode::name);
            for (const CatalogueNode* node : inFile) addOnce(found, *node);
        }
    }
    return found;
}

std::string joined(const std::vector<std::string>& texts) {
    std::string line;
    for (const std::string& text : texts) line += (line.empty() ? "'" : ", '") + text + "'";
    return line;
}

std::string unambiguousSpelling(const SceneCatalogue& catalogue, const CatalogueNode& node) {
    const std::string& path = catalogue.getFiles()[node.file].path;
    return node.isFileRoot() && fileRootsByPathOrBaseName(catalogue, path).size() == 1 ? path : path + "#" + node.name;
}

std::string lowerCase(std::string text) {
    for (char& letter : text) letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    return text;
}

/// Levenshtein's distance: how many bytes have to be put in, left out or replaced.
std::size_t editDistance(const std::string& from, const std::string& to) {
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < from.size(); ++i) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < to.size(); ++j) {
            const std::size_t replaced = diagonal + (from[i] == to[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

bool isNear(const std::string& wanted, const std::string& name) {
    constexpr std::size_t longestName = 100;
    if (wanted.empty() || name.empty() || std::max(wanted.size(), name.size()) > longestName) return false;
    const std::string lowerWanted = lowerCase(wanted);
    const std::string lowerName = lowerCase(name);
    const bool isPart = wanted.size() > 1 && lowerName.find(lowerWanted) != std::string::npos;
    return isPart || editDistance(lowerWanted, lowerName) <= 1 + wanted.size() / 5;
}

std::vector<std::string> nearNames(const SceneCatalogue& catalogue, const std::string& text) {
    const std::string wanted = text.substr(text.rfind('#') + 1);
    std::vector<std::string> names;
    for (const CatalogueNode& node : catalogue.getNodes()) {
        if (names.size() <= longestList && isNear(wanted, node.name)) names.push_back(node.name);
    }
    return names;
}

std::string unknownNode(const SceneCatalogue& catalogue, const std::string& text) {
    const std::vector<std::string> names = nearNames(catalogue, text);
    const std::string line = "unknown node '" + text + "'";
    if (names.empty() || names.size() > longestList) return line + "; 'tesk-measure list' shows the names";
    return line + "; did you mean " + joined(names) + "?";
}

std::string ambiguousNode(const SceneCatalogue& catalogue, const std::string& text, const Nodes& found) {
    const std::string line = "'" + text + "' means " + std::to_string(found.size()) + " nodes";
    if (found.size() > longestList) return line + "; choose one as FILE#NODE";
    std::vector<std::string> spellings;
    for (const CatalogueNode* node : found) spellings.push_back(unambiguousSpelling(catalogue, *node));
    return line + ": " + joined(spellings);
}

} // namespace

const CatalogueNode& selectNode(const SceneCatalogue& catalogue, const std::string& text) {
    Nodes found = fileRootsByPathOrBaseName(catalogue, text);
    if (found.empty()) found = stemsAndNodes(catalogue, text);
    if (found.empty()) found = nodesInNamedFiles(catalogue, text);
    if (found.empty()) throw Failure(unknownNode(catalogue, text));
    if (found.size() > 1) throw Failure(ambiguousNode(catalogue, text, found));
    return *found.front();
}

} // namespace tesk::measure
