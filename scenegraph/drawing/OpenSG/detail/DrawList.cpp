#include <OpenSG/detail/DrawList.h>

#include <OpenSG/OSGSimpleGeometry.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace osg {

namespace {

bool isSortedByState(const DrawItem& item) { return item.material->getSortKey() != Material::NoStateSorting; }

/// An order between items that leaves those equal that are to be drawn as they came.
struct DrawnBefore {
    bool transparentByDepth;

    bool operator()(const DrawItem& a, const DrawItem& b) const {
        if (isSortedByState(a) != isSortedByState(b)) return isSortedByState(b);
        if (!isSortedByState(a)) return false;
        if (a.material->getSortKey() != b.material->getSortKey())
            return a.material->getSortKey() < b.material->getSortKey();
        if (a.transparent != b.transparent) return b.transparent;
        if (!a.transparent) return a.materialNumber < b.materialNumber;
        return transparentByDepth && a.depth < b.depth;
    }
};

} // namespace

void DrawList::clear() {
    placements.assign(1, Matrix());
    placementStack.assign(1, 0);
    items.clear();
    materialNumbers.clear();
}

void DrawList::pushMatrix(const Matrix& matrix) {
    Matrix placement = getTopMatrix();
    placement.mult(matrix);
    placementStack.push_back(static_cast<UInt32>(placements.size()));
    placements.push_back(placement);
}

void DrawList::popMatrix() {
    if (placementStack.size() > 1) placementStack.pop_back();
}

void DrawList::add(Geometry* geometry, Material* given, UInt32 lightSet, Real32 depth) {
    Material* const material = given ? given : getDefaultMaterial().getCPtr();
    const auto number = materialNumbers.emplace(material, static_cast<UInt32>(materialNumbers.size())).first->second;
    // NaN has no place in an order.
    const Real32 sortableDepth = std::isnan(depth) ? -std::numeric_limits<Real32>::infinity() : depth;
    items.push_back(
        {geometry, material, placementStack.back(), lightSet, sortableDepth, material->isTransparent(), number});
}

void DrawList::sort(bool transparentByDepth) {
    std::stable_sort(items.begin(), items.end(), DrawnBefore{transparentByDepth});
}

} // namespace osg
