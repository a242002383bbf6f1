#include <apps/measure/PictureObjects.h>

#include <apps/measure/NodeListing.h>
#include <apps/measure/Numbers.h>

#include <rendering/picture/ShadedGeometry.h>

#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGIntersectAction.h>
#include <OpenSG/OSGLine.h>
#include <OpenSG/OSGLineChunk.h>
#include <OpenSG/OSGTransform.h>

#include <cmath>
#include <map>
#include <memory>

namespace tesk::measure {

namespace {

/// Objects come before what shows the measurements, whose materials have 0 and more.
constexpr osg::Int32 objectSortKey = -1;
constexpr float seeThroughTransparency = 0.6f;
constexpr float backgroundTransparency = 0.88f;
const osg::Color3f backgroundColor(0.62f, 0.66f, 0.70f);

osg::Color3f calmColor(std::size_t number) {
    static const osg::Color3f colors[] = {{0.45f, 0.60f, 0.75f}, {0.72f, 0.64f, 0.52f}, {0.50f, 0.66f, 0.55f},
                                          {0.68f, 0.54f, 0.64f}, {0.47f, 0.66f, 0.68f}, {0.68f, 0.66f, 0.48f}};
    return colors[number % std::size(colors)];
}

osg::SimpleMaterialPtr makeSurfaceMaterial(osg::Color3f color, float transparency) {
    const osg::SimpleMaterialPtr material = osg::SimpleMaterial::create();
    const osg::CPEditor editor(material);
    material->setDiffuse(color * 0.75f);
    material->setAmbient(color * 0.4f); // what is seen at a grazing angle has to be seen, too
    material->setSpecular(osg::Color3f(0.06f, 0.06f, 0.06f));
    material->setShininess(25.0f);
    material->setTransparency(transparency);
    material->setSortKey(objectSortKey);
    return material;
}

osg::SimpleMaterialPtr makeLineMaterial(const osg::Color3f& color, float transparency, float width) {
    const osg::LineChunkPtr line = osg::LineChunk::create();
    {
        const osg::CPEditor editor(line);
        line->setWidth(width);
    }
    const osg::SimpleMaterialPtr material = osg::SimpleMaterial::create();
    const osg::CPEditor editor(material);
    material->setDiffuse(color);
    material->setLit(false);
    material->setTransparency(transparency);
    material->setSortKey(objectSortKey);
    material->addChunk(line);
    return material;
}

osg::Color3f brightened(const osg::Color3f& color) {
    const auto brighter = [](float part) { return 0.5f + 0.5f * part; };
    return {brighter(color[0]), brighter(color[1]), brighter(color[2])};
}

void addChild(const osg::NodePtr& parent, const osg::NodePtr& child) {
    const osg::CPEditor editor(parent, osg::Node::ChildrenFieldMask);
    parent->addChild(child);
}

/// Copies of geometries in an object's materials, each made once for all nodes of the object that share it.
class CopiedGeometries {
public:
    CopiedGeometries(const osg::MaterialPtr& surfaceMaterial, const osg::MaterialPtr& lineMaterial)
        : surface(surfaceMaterial), lines(lineMaterial) {}

    /// What the node's own geometry holds, in the world's place; null when it holds nothing.
    osg::NodePtr makeNode(const osg::NodePtr& node) {
        const osg::GeometryPtr geometry = osg::GeometryPtr::dcast(node->getCore());
        if (geometry == osg::NullFC || geometry->getPositions() == osg::NullFC) return osg::NullFC;
        const Copies& made = findOrMake(geometry);
        if (!made.surface && !made.lines) return osg::NullFC;
        osg::TransformPtr transform;
        const osg::NodePtr placed = osg::makeCoredNode<osg::Transform>(&transform);
        {
            const osg::CPEditor editor(transform, osg::Transform::MatrixFieldMask);
            transform->setMatrix(node->getToWorld());
        }
        if (made.surface) addChild(placed, osg::makeNodeFor(made.surface.get()));
        if (made.lines) addChild(placed, osg::makeNodeFor(made.lines.get()));
        return placed;
    }

private:
    struct Copies {
        osg::RefPtr<osg::GeometryPtr> surface;
        osg::RefPtr<osg::GeometryPtr> lines;
    };

    const Copies& findOrMake(const osg::GeometryPtr& geometry) {
        const auto [entry, isNew] = copies.try_emplace(geometry);
        if (isNew) {
            entry->second.surface = inMaterial(rendering::makeShadedTriangles(geometry), surface);
            entry->second.lines = inMaterial(rendering::makeLines(geometry), lines);
        }
        return entry->second;
    }

    static osg::GeometryPtr inMaterial(const osg::GeometryPtr& geometry, const osg::MaterialPtr& material) {
        if (geometry == osg::NullFC) return osg::NullFC;
        const osg::CPEditor editor(geometry, osg::Geometry::MaterialFieldMask);
        geometry->setMaterial(material);
        return geometry;
    }

    osg::MaterialPtr surface;
    osg::MaterialPtr lines;
    std::map<osg::GeometryPtr, Copies> copies;
};

/// For each geometry of an object, with what takes it to the world.
template <typename Visit> void forEachCopy(const osg::NodePtr& object, Visit visit) {
    for (osg::UInt32 place = 0; place < object->getNChildren(); ++place) {
        const osg::NodePtr placed = object->getChild(place);
        for (osg::UInt32 copy = 0; copy < placed->getNChildren(); ++copy)
            visit(osg::GeometryPtr::dcast(placed->getChild(copy)->getCore()),
                  osg::TransformPtr::dcast(placed->getCore())->getMatrix());
    }
}

bool isInRange(const osg::Pnt3f& point) {
    const auto isCoordinate = [](float value) { return std::abs(value) <= largestCoordinate; };
    return isCoordinate(point[0]) && isCoordinate(point[1]) && isCoordinate(point[2]);
}

void extend(std::optional<rendering::Box>& box, const osg::NodePtr& node) {
    const auto added = worldBounds(node);
    if (!added || !isInRange(added->lower) || !isInRange(added->upper)) return;
    if (!box) box.emplace(rendering::Box{added->lower, added->upper});
    box->extendBy(rendering::Box{added->lower, added->upper});
}

void sortBackToFront(const osg::NodePtr& object, const osg::Pnt3f& eye) {
    forEachCopy(object, [&](const osg::GeometryPtr& copy, osg::Matrix toWorld) {
        if (copy->getNormals() == osg::NullFC) return;
        osg::Pnt3f localEye;
        toWorld.invert();
        toWorld.mult(eye, localEye);
        rendering::sortBackToFront(copy, localEye);
    });
}

void setShown(const osg::NodePtr& node, bool isShown) {
    const osg::CPEditor editor(node, osg::Node::TravMaskFieldMask);
    node->setTravMask(isShown ? 0xffffffff : 0);
}

bool isColored(const CatalogueNode& node, const std::set<const CatalogueNode*>& measured) {
    return measured.empty() ? node.isFileRoot() : measured.count(&node) != 0;
}

} // namespace

PictureObjects::PictureObjects(const SceneCatalogue& catalogue, const std::set<const CatalogueNode*>& measured,
                               float lineWidth)
    : root(osg::makeCoredNode<osg::Group>()) {
    addObject(backgroundColor, backgroundTransparency, lineWidth);
    // One for each object.
    std::vector<CopiedGeometries> copies;
    // Which object each node of the catalogue belongs to; parents come before their children.
    std::vector<std::size_t> objectOfNode;
    for (const CatalogueNode& node : catalogue.getNodes()) {
        objectOfNode.push_back(node.isFileRoot() ? 0 : objectOfNode[node.parent]);
        if (isColored(node, measured)) {
            objectOfNode.back() = objects.size();
            addObject(calmColor(objects.size() - 1), 0.0f, lineWidth);
        }
        if (node.isFileRoot()) extend(bounds, node.node);
        for (std::size_t i = copies.size(); i < objects.size(); ++i)
            copies.emplace_back(objects[i].surface.get(), objects[i].lines.get());
        const osg::NodePtr copy = copies[objectOfNode.back()].makeNode(node.node);
        if (copy != osg::NullFC) addChild(objects[objectOfNode.back()].node.get(), copy);
    }
}

std::vector<osg::Pnt3f> PictureObjects::getColoredPoints() const {
    std::vector<osg::Pnt3f> points;
    for (std::size_t i = 1; i < objects.size(); ++i) {
        forEachCopy(objects[i].node.get(), [&](const osg::GeometryPtr& copy, const osg::Matrix& toWorld) {
            for (osg::Pnt3f point : osg::GeoPositions3fPtr::dcast(copy->getPositions())->getField()) {
                toWorld.mult(point, point);
                if (isInRange(point)) points.push_back(point);
            }
        });
    }
    return points;
}

PictureObjects::Object& PictureObjects::addObject(const osg::Color3f& color, float transparency, float lineWidth) {
    Object& object = objects.emplace_back();
    object.node = osg::makeCoredNode<osg::Group>();
    object.surface = makeSurfaceMaterial(color, transparency);
    object.lines = makeLineMaterial(brightened(color), transparency, lineWidth);
    addChild(root.get(), object.node.get());
    return object;
}

void PictureObjects::seeThrough(const osg::Pnt3f& eye, const std::vector<osg::Pnt3f>& points, float tolerance) {
    std::map<osg::NodePtr, const Object*> candidates;
    for (std::size_t i = 1; i < objects.size(); ++i) candidates.emplace(objects[i].node.get(), &objects[i]);
    // What is transparent already hides nothing.
    setShown(objects.front().node.get(), false);
    const std::unique_ptr<osg::IntersectAction> action(osg::IntersectAction::create());
    for (const osg::Pnt3f& point : points) {
        osg::Vec3f way = point - eye;
        const float distance = way.length() - tolerance;
        way.normalize();
        for (bool isHidden = distance > 0.0f; isHidden;) {
            action->setLine(osg::Line(eye, way), distance);
            action->apply(root.get());
            isHidden = action->didHit();
            if (!isHidden) break;
            // The copy lies below its place, and that below the object.
            const osg::NodePtr node = action->getHitObject()->getParent()->getParent();
            makeTransparent(*candidates.at(node));
            setShown(node, false);
        }
    }
    for (const Object& object : objects) {
        setShown(object.node.get(), true);
        if (object.surface->getTransparency() > 0.0f) sortBackToFront(object.node.get(), eye);
    }
}

void PictureObjects::makeTransparent(const Object& object) {
    const osg::CPEditor editor(object.surface.get());
    object.surface->setTransparency(seeThroughTransparency);
}

} // namespace tesk::measure
