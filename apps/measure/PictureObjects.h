#pragma once

#include <apps/measure/SceneCatalogue.h>

#include <rendering/picture/FittedView.h>

#include <OpenSG/OSGSimpleMaterial.h>

#include <optional>
#include <set>
#include <vector>

namespace tesk::measure {

/// The scene's objects as a picture shows them: measured ones in a calm colour each, all others as a faint background.
///
/// They are copies, with the triangles' normals and materials of their own; the scene stays as it is. An object is a
/// measured node with what lies below it, up to further measured nodes. Where nothing is measured, because points alone
/// are, every file is an object.
class PictureObjects {
public:
    /// Lines are so many pixels wide.
    PictureObjects(const SceneCatalogue& catalogue, const std::set<const CatalogueNode*>& measured, float lineWidth);

    osg::NodePtr getNode() const { return root.get(); }
    /// Corners of the coloured objects in the world.
    std::vector<osg::Pnt3f> getColoredPoints() const;
    /// World bounds of everything; nothing when there is nothing.
    const std::optional<rendering::Box>& getBounds() const { return bounds; }
    /// Makes transparent every coloured object that hides one of the points from the eye, by more than the tolerance,
    /// and has all transparent ones drawn from back to front.
    void seeThrough(const osg::Pnt3f& eye, const std::vector<osg::Pnt3f>& points, float tolerance);

private:
    struct Object {
        /// Below it a transform for every node, and below that surface, lines or both.
        osg::RefPtr<osg::NodePtr> node;
        osg::RefPtr<osg::SimpleMaterialPtr> surface;
        osg::RefPtr<osg::SimpleMaterialPtr> lines;
    };

    void makeTransparent(const Object& object);
    Object& addObject(const osg::Color3f& color, float transparency, float lineWidth);

    osg::RefPtr<osg::NodePtr> root;
    /// The background comes first.
    std::vector<Object> objects;
    std::optional<rendering::Box> bounds;
};

} // namespace tesk::measure
