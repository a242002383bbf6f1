#include <rendering/import/detail/AssimpFlattener.h>

#include <rendering/import/detail/MeshBuilder.h>
#include <rendering/import/detail/PolygonTriangulation.h>

#include <assimp/scene.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <unordered_set>

namespace tesk::rendering::detail {

namespace {

Point pointOf(const aiVector3D& vector) { return {vector.x, vector.y, vector.z}; }

std::array<float, 16> rowsOf(const aiMatrix4x4& matrix) {
    return {matrix.a1, matrix.a2, matrix.a3, matrix.a4, matrix.b1, matrix.b2, matrix.b3, matrix.b4,
            matrix.c1, matrix.c2, matrix.c3, matrix.c4, matrix.d1, matrix.d2, matrix.d3, matrix.d4};
}

bool isFinite(const aiMatrix4x4& matrix) {
    const std::array<float, 16> elements = rowsOf(matrix);
    return std::all_of(elements.begin(), elements.end(), [](float element) { return std::isfinite(element); });
}

/// Exactly; assimp's own test has a tolerance.
bool isIdentity(const aiMatrix4x4& matrix) { return rowsOf(matrix) == rowsOf(aiMatrix4x4()); }

/// The triangles and the lines of one assimp mesh.
class MeshConverter {
public:
    explicit MeshConverter(const aiMesh& source) : mesh(source) {
        for (unsigned face = 0; face < mesh.mNumFaces; ++face) addFace(mesh.mFaces[face]);
    }

    MeshBuilder triangles{Primitive::triangle};
    MeshBuilder lines{Primitive::line};
    std::uint64_t pointCount = 0;
    std::uint64_t nonFiniteCount = 0;

private:
    void addFace(const aiFace& face) {
        corners.clear();
        for (unsigned corner = 0; corner < face.mNumIndices; ++corner) {
            if (face.mIndices[corner] >= mesh.mNumVertices) throw UnreadableFile("a face refers to a missing vertex");
            corners.push_back(pointOf(mesh.mVertices[face.mIndices[corner]]));
        }
        switch (corners.size()) {
        case 0:
            break;
        case 1:
            ++pointCount;
            break;
        case 2:
            nonFiniteCount += !lines.add(corners.data());
            break;
        case 3:
            nonFiniteCount += !triangles.add(corners.data());
            break;
        default:
            addPolygon();
        }
    }

    void addPolygon() {
        if (!std::all_of(corners.begin(), corners.end(), [](const Point& point) { return detail::isFinite(point); })) {
            ++nonFiniteCount;
            return;
        }
        for (const auto& triangle : triangulate(corners)) {
            const Point points[] = {corners[triangle[0]], corners[triangle[1]], corners[triangle[2]]};
            triangles.add(points);
        }
    }

    const aiMesh& mesh;
    std::vector<Point> corners;
};

class Flattener {
public:
    Flattener(const aiScene& loaded, const AssimpNames& sourceNames) : source(loaded), names(sourceNames) {}

    FlatScene flatten() {
        if (findNodesWithGeometry(*source.mRootNode, 1)) addNode(*source.mRootNode, noParent);
        addNote(counted(pointCount, "point") + " dropped", pointCount);
        addNote(counted(nonFiniteCount, "primitive") + " with coordinates that are not finite numbers dropped",
                nonFiniteCount);
        addNote(counted(misplacedCount, "node") + " with a transform that is not finite dropped", misplacedCount);
        addNote(counted(emptyCount, "node") + " without triangles or lines left out", emptyCount);
        return std::move(scene);
    }

private:
    void addNote(const std::string& note, std::uint64_t count) {
        if (count > 0) scene.notes.push_back(note);
    }

    /// Converts the meshes of the subtree on the way.
    bool findNodesWithGeometry(const aiNode& node, std::uint32_t depth) {
        if (depth > maximumDepth)
            throw UnreadableFile("node tree of more than " + std::to_string(maximumDepth) + " levels");
        if (!isFinite(node.mTransformation)) {
            ++misplacedCount;
            return false;
        }
        bool hasGeometry = false;
        for (unsigned i = 0; i < node.mNumMeshes; ++i) hasGeometry |= !convertedMesh(node.mMeshes[i]).empty();
        for (unsigned i = 0; i < node.mNumChildren; ++i)
            hasGeometry |= findNodesWithGeometry(*node.mChildren[i], depth + 1);
        if (hasGeometry)
            nodesWithGeometry.insert(&node);
        else
            ++emptyCount;
        return hasGeometry;
    }

    /// The numbers of the flat meshes that a mesh became: triangles, lines, both or none.
    const std::vector<std::uint32_t>& convertedMesh(unsigned index) {
        const auto [entry, isNew] = convertedMeshes.try_emplace(index);
        if (isNew) {
            MeshConverter converter(*source.mMeshes[index]);
            pointCount += converter.pointCount;
            nonFiniteCount += converter.nonFiniteCount;
            for (MeshBuilder* part : {&converter.triangles, &converter.lines}) {
                if (part->isEmpty()) continue;
                entry->second.push_back(static_cast<std::uint32_t>(scene.meshes.size()));
                scene.meshes.push_back(part->take());
            }
        }
        return entry->second;
    }

    struct Part {
        std::uint32_t mesh;
        std::string name;
    };

    std::vector<Part> partsOf(const aiNode& node) {
        std::vector<Part> parts;
        for (unsigned i = 0; i < node.mNumMeshes; ++i)
            for (const std::uint32_t mesh : convertedMesh(node.mMeshes[i]))
                parts.push_back({mesh, names.of(*source.mMeshes[node.mMeshes[i]])});
        return parts;
    }

    std::vector<const aiNode*> childrenOf(const aiNode& node) const {
        std::vector<const aiNode*> children(node.mChildren, node.mChildren + node.mNumChildren);
        children.erase(std::remove_if(children.begin(), children.end(),
                                      [&](const aiNode* child) { return nodesWithGeometry.count(child) == 0; }),
                       children.end());
        return children;
    }

    void addNode(const aiNode& node, std::uint32_t parent) {
        const std::vector<Part> parts = partsOf(node);
        const std::vector<const aiNode*> children = childrenOf(node);
        std::string name = names.of(node);
        const bool isWrapper = name.empty() && (!node.mParent || parts.size() + children.size() == 1);
        const bool isPlaced = !isIdentity(node.mTransformation);
        if (!isPlaced && !isWrapper && parts.size() == 1 && children.empty())
            return addGeometry(parts.front().mesh, name, parent);
        if (name.empty() && parts.size() == 1) name = parts.front().name;
        if (isPlaced || !isWrapper) parent = addInnerNode(node, name, isPlaced, parent);
        for (const Part& part : parts) addGeometry(part.mesh, part.name.empty() ? name : part.name, parent);
        for (const aiNode* child : children) addNode(*child, parent);
    }

    std::uint32_t addInnerNode(const aiNode& node, const std::string& name, bool isPlaced, std::uint32_t parent) {
        FlatNode inner;
        inner.kind = isPlaced ? NodeKind::transform : NodeKind::group;
        inner.parent = parent;
        inner.name = name;
        inner.matrix = rowsOf(node.mTransformation);
        return append(inner);
    }

    void addGeometry(std::uint32_t mesh, const std::string& name, std::uint32_t parent) {
        FlatNode geometry;
        geometry.kind = NodeKind::geometry;
        geometry.parent = parent;
        geometry.name = name;
        geometry.mesh = mesh;
        append(geometry);
    }

    std::uint32_t append(const FlatNode& node) {
        if (scene.nodes.size() == maximumNodeCount)
            throw UnreadableFile("more than " + counted(maximumNodeCount, "node"));
        scene.nodes.push_back(node);
        return static_cast<std::uint32_t>(scene.nodes.size() - 1);
    }

    const aiScene& source;
    const AssimpNames& names;
    FlatScene scene;
    std::map<unsigned, std::vector<std::uint32_t>> convertedMeshes;
    std::unordered_set<const aiNode*> nodesWithGeometry;
    std::uint64_t pointCount = 0, nonFiniteCount = 0, misplacedCount = 0, emptyCount = 0;
};

} // namespace

FlatScene flatten(const aiScene& scene, const AssimpNames& names) { return Flattener(scene, names).flatten(); }

} // namespace tesk::rendering::detail
