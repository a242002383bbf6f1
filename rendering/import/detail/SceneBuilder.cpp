#include <rendering/import/detail/SceneBuilder.h>

#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGTransform.h>

#include <algorithm>
#include <cstring>

namespace tesk::rendering::detail {

namespace {

osg::GeoPositions3fPtr createPositions(const std::vector<Point>& points) {
    static_assert(sizeof(Point) == sizeof(osg::Pnt3f));
    const osg::GeoPositions3fPtr positions = osg::GeoPositions3f::create();
    auto& field = positions->getField();
    field.resize(points.size());
    if (!points.empty()) std::memcpy(static_cast<void*>(&field[0]), points.data(), points.size() * sizeof(Point));
    return positions;
}

osg::GeometryPtr createGeometry(const FlatMesh& mesh) {
    const osg::GeoPTypesUI8Ptr types = osg::GeoPTypesUI8::create();
    types->push_back(mesh.primitive == Primitive::triangle ? GL_TRIANGLES : GL_LINES);
    const osg::GeoPLengthsUI32Ptr lengths = osg::GeoPLengthsUI32::create();
    lengths->push_back(static_cast<osg::UInt32>(mesh.indices.size()));
    const osg::GeoIndicesUI32Ptr indices = osg::GeoIndicesUI32::create();
    indices->getField().setValues(mesh.indices);

    const osg::GeometryPtr geometry = osg::Geometry::create();
    const osg::CPEditor edit(geometry, osg::Geometry::TypesFieldMask | osg::Geometry::LengthsFieldMask |
                                           osg::Geometry::PositionsFieldMask | osg::Geometry::IndicesFieldMask);
    geometry->setTypes(types);
    geometry->setLengths(lengths);
    geometry->setPositions(createPositions(mesh.positions));
    geometry->setIndices(indices);
    return geometry;
}

osg::TransformPtr createTransform(const std::array<float, 16>& rows) {
    const osg::Matrix matrix(rows[0], rows[1], rows[2], rows[3], rows[4], rows[5], rows[6], rows[7], rows[8], rows[9],
                             rows[10], rows[11], rows[12], rows[13], rows[14], rows[15]);
    const osg::TransformPtr transform = osg::Transform::create();
    const osg::CPEditor edit(transform, osg::Transform::MatrixFieldMask);
    transform->setMatrix(matrix);
    return transform;
}

class Builder {
public:
    explicit Builder(FlatScene flat) : scene(std::move(flat)), geometries(scene.meshes.size()) {}

    osg::NodeRefPtr build(const std::string& name) {
        const osg::NodeRefPtr root(osg::makeCoredNode<osg::Group>());
        osg::setName(root, name);
        std::vector<osg::NodePtr> nodes;
        for (const FlatNode& flat : scene.nodes) {
            const osg::NodePtr node = osg::makeNodeFor(createCore(flat));
            const std::string cleanName = cleanText(flat.name);
            osg::setName(node, cleanName.empty() ? name : cleanName);
            const osg::NodePtr parent = flat.parent == noParent ? root.get() : nodes[flat.parent];
            const osg::CPEditor edit(parent, osg::Node::ChildrenFieldMask);
            parent->addChild(node);
            nodes.push_back(node);
        }
        return root;
    }

private:
    osg::NodeCorePtr createCore(const FlatNode& node) {
        switch (node.kind) {
        case NodeKind::group:
            break;
        case NodeKind::transform:
            return createTransform(node.matrix);
        case NodeKind::geometry:
            return findOrCreateGeometry(node.mesh);
        }
        return osg::Group::create();
    }

    osg::GeometryPtr findOrCreateGeometry(std::uint32_t mesh) {
        if (!geometries[mesh]) {
            geometries[mesh] = createGeometry(scene.meshes[mesh]);
            scene.meshes[mesh] = {};
        }
        return geometries[mesh];
    }

    FlatScene scene;
    std::vector<osg::GeometryPtr> geometries;
};

/// A file that holds one part of the file's own name is that part; a group around it would say nothing.
osg::NodeRefPtr withoutNeedlessGroup(const osg::NodeRefPtr& root) {
    if (root->getNChildren() != 1) return root;
    const osg::NodeRefPtr child(root->getChild(0));
    if (child->getNChildren() != 0 || std::strcmp(osg::getName(child), osg::getName(root)) != 0) return root;
    root->subChild(child);
    return child;
}

bool isUtf8(const std::string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto lead = static_cast<unsigned char>(text[i]);
        if (lead < 0x80) continue;
        const std::size_t following = lead >= 0xf0 ? 3 : lead >= 0xe0 ? 2 : 1;
        if (lead < 0xc2 || lead > 0xf4 || text.size() - i <= following) return false;
        for (const std::size_t end = i + following; i < end; ++i)
            if ((static_cast<unsigned char>(text[i + 1]) & 0xc0) != 0x80) return false;
    }
    return true;
}

} // namespace

std::string cleanText(const std::string& text) {
    const bool isLatin1 = !isUtf8(text);
    std::string clean;
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if (code < 0x20 || code == 0x7f) {
            clean += ' ';
        } else if (code >= 0x80 && isLatin1) {
            clean += static_cast<char>(0xc0 | code >> 6);
            clean += static_cast<char>(0x80 | (code & 0x3f));
        } else {
            clean += character;
        }
    }
    const std::size_t first = std::min(clean.find_first_not_of(' '), clean.size());
    return clean.substr(first, clean.find_last_not_of(' ') + 1 - first);
}

osg::NodeRefPtr buildScene(FlatScene scene, const std::string& name) {
    return withoutNeedlessGroup(Builder(std::move(scene)).build(cleanText(name)));
}

} // namespace tesk::rendering::detail
