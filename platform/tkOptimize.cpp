#include <platform/tkOptimize.h>

#include <OpenSG/OSGGeometry.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace {

/// Finds kept positions by cells four times as wide as the distance, so that whatever lies within it is in one of two
/// neighbours at most in each direction. A cell holds few of them, for they are farther apart than the distance.
class PositionGrid {
public:
    explicit PositionGrid(float distance)
        : squaredDistance(double(distance) * double(distance)), reach(std::min(1.001 * double(distance), 1e100)),
          cellSize(4.0 * reach) {}

    /// The first of the positions added that lies within the distance; null if there is none.
    const osg::Pnt3f* findWithin(const osg::Pnt3f& point) const {
        const Cell low = cellOf(point, -reach), high = cellOf(point, reach);
        const osg::Pnt3f* first = nullptr;
        for (const double x : {low[0], high[0]}) {
            for (const double y : {low[1], high[1]}) {
                for (const double z : {low[2], high[2]}) {
                    if (const osg::Pnt3f* const found = findInCell({x, y, z}, point))
                        if (first == nullptr || found < first) first = found;
                    if (z == high[2]) break;
                }
                if (y == high[1]) break;
            }
            if (x == high[0]) break;
        }
        return first;
    }

    /// Added positions lie in one array, in ascending order.
    void add(const osg::Pnt3f* point) { cells[cellOf(*point)].push_back(point); }

private:
    /// Whole numbers; double precision holds them for all positions that have neighbours other than themselves.
    using Cell = std::array<double, 3>;

    struct CellHash {
        std::size_t operator()(const Cell& cell) const {
            std::uint64_t hash = 0;
            for (const double coordinate : cell) {
                hash = (hash ^ std::hash<double>()(coordinate)) * 0x9e3779b97f4a7c15u;
                hash ^= hash >> 32;
            }
            return hash;
        }
    };

    Cell cellOf(const osg::Pnt3f& point, double offset = 0.0) const {
        const auto cellAlong = [&](osg::UInt32 axis) { return std::floor((double(point[axis]) + offset) / cellSize); };
        return {cellAlong(0), cellAlong(1), cellAlong(2)};
    }

    const osg::Pnt3f* findInCell(const Cell& cell, const osg::Pnt3f& point) const {
        const auto found = cells.find(cell);
        if (found == cells.end()) return nullptr;
        for (const osg::Pnt3f* const kept : found->second)
            if (isWithin(*kept, point)) return kept;
        return nullptr;
    }

    bool isWithin(const osg::Pnt3f& a, const osg::Pnt3f& b) const {
        double sum = 0.0;
        for (osg::UInt32 axis = 0; axis < 3; ++axis) {
            const double difference = double(a[axis]) - double(b[axis]);
            sum += difference * difference;
        }
        return sum <= squaredDistance;
    }

    double squaredDistance;
    /// A little more than the distance, for rounding; finite.
    double reach;
    double cellSize;
    std::unordered_map<Cell, std::vector<const osg::Pnt3f*>, CellHash> cells;
};

bool isFinite(const osg::Pnt3f& point) {
    return std::isfinite(point[0]) && std::isfinite(point[1]) && std::isfinite(point[2]);
}

/// Whether the geometry's indices are positions' and nothing else.
bool isIndexOfPositions(const osg::GeometryPtr& geometry) {
    return geometry->getIndices() != osg::NullFC && geometry->getIndexMapping().size() <= 1 &&
           geometry->getNormals() == osg::NullFC && geometry->getColors() == osg::NullFC &&
           geometry->getSecondaryColors() == osg::NullFC && geometry->getTexCoords() == osg::NullFC;
}

/// Appends the positions that are kept, and returns for each its number among these or that of the one it joins.
std::vector<osg::UInt32> unify(const osg::MFPnt3f& positions, float distance, const osg::GeoPositions3fPtr& kept) {
    PositionGrid grid(distance);
    std::vector<osg::UInt32> numbers;
    numbers.reserve(positions.size());
    for (const osg::Pnt3f& position : positions) {
        const bool canMerge = isFinite(position);
        const osg::Pnt3f* const found = canMerge ? grid.findWithin(position) : nullptr;
        if (found != nullptr) {
            numbers.push_back(numbers[static_cast<std::size_t>(found - &positions[0])]);
            continue;
        }
        numbers.push_back(kept->getSize());
        kept->push_back(position);
        if (canMerge) grid.add(&position);
    }
    return numbers;
}

} // namespace

void tkOptimize::unifyVerticesEpsilon(const osg::NodePtr& node, float epsilon) {
    if (node == osg::NullFC || !(epsilon > 0.0f)) return;
    const osg::GeometryPtr geometry = osg::GeometryPtr::dcast(node->getCore());
    if (geometry == osg::NullFC || !isIndexOfPositions(geometry)) return;
    const osg::GeoPositions3fPtr positions = osg::GeoPositions3fPtr::dcast(geometry->getPositions());
    if (positions == osg::NullFC) return;

    const osg::RefPtr<osg::GeoPositions3fPtr> kept(osg::GeoPositions3f::create());
    const std::vector<osg::UInt32> numbers = unify(positions->getField(), epsilon, kept);
    if (kept->getSize() == numbers.size()) return;
    const osg::RefPtr<osg::GeoIndicesPtr> indices(geometry->getIndices()->clone());
    for (osg::UInt32 i = 0; i < indices->getSize(); ++i) {
        const osg::UInt32 index = indices->getValue(i);
        if (index < numbers.size()) indices->setValue(numbers[index], i);
    }
    const osg::CPEditor edit(geometry, osg::Geometry::IndicesFieldMask | osg::Geometry::PositionsFieldMask);
    geometry->setIndices(indices);
    geometry->setPositions(kept);
}
