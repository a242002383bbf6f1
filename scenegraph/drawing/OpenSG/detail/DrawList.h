#pragma once

#include <OpenSG/OSGGeometry.h>
#include <OpenSG/OSGMatrix.h>

#include <unordered_map>
#include <vector>

namespace osg {

/// A geometry as it is to be drawn in one place.
struct DrawItem {
    Geometry* geometry;
    Material* material;
    /// Number of its matrix among the list's placements.
    UInt32 placement;
    /// Number of its set of lights.
    UInt32 lightSet;
    /// Along the camera's z axis; smaller is farther away.
    Real32 depth;
    bool transparent;
    /// Among the materials, in the order in which the list met them.
    UInt32 materialNumber;
};

/// What a traversal found to draw, and in which order to draw it.
class DrawList {
public:
    DrawList() { clear(); }

    /// Back to no items, under the identity; memory is kept.
    void clear();

    /// What multiplies the placement of the items added until the pop.
    void pushMatrix(const Matrix& matrix);
    /// Nothing when nothing was pushed.
    void popMatrix();
    const Matrix& getTopMatrix() const { return placements[placementStack.back()]; }
    const Matrix& getPlacement(UInt32 number) const { return placements[number]; }

    /// The material may be null, for the default one.
    void add(Geometry* geometry, Material* material, UInt32 lightSet, Real32 depth);
    /// First the materials with Material::NoStateSorting as added; then by sort key, within a key the opaque items
    /// material by material, then the transparent ones by depth, or as added when this is not asked for.
    void sort(bool transparentByDepth);
    const std::vector<DrawItem>& getItems() const { return items; }

private:
    std::vector<Matrix> placements;
    std::vector<UInt32> placementStack;
    std::vector<DrawItem> items;
    std::unordered_map<const Material*, UInt32> materialNumbers;
};

} // namespace osg
