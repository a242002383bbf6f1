#include <measurement/scene/detail/GeometryRepair.h>

#include <measurement/scene/detail/NodeGeometry.h>

#include <OpenSG/OSGGL.h>

#include <algorithm>
#include <vector>

namespace tesk::measurement::detail {

namespace {

osg::UInt32 getSlotCount(const osg::GeometryPtr& geometry) {
    return std::max<osg::UInt32>(static_cast<osg::UInt32>(geometry->getIndexMapping().getSize()), 1);
}

osg::UInt32 countVertices(const osg::GeometryPtr& geometry) {
    const osg::GeoIndicesPtr indices = geometry->getIndices();
    if (indices != osg::NullFC) return static_cast<osg::UInt32>(indices->getSize()) / getSlotCount(geometry);
    const osg::GeoPositionsPtr positions = geometry->getPositions();
    return positions != osg::NullFC ? static_cast<osg::UInt32>(positions->getSize()) : 0;
}

/// How many vertices an element takes, and how many osg's iterators need to begin it: the first triangle of a quad
/// has 3.
struct ElementSize {
    osg::UInt32 whole;
    osg::UInt32 begun;
};

ElementSize getElementSize(osg::UInt32 type) {
    switch (type) {
    case GL_LINES:
        return {2, 2};
    case GL_TRIANGLES:
        return {3, 3};
    case GL_QUADS:
        return {4, 3};
    default:
        return {1, 1};
    }
}

/// The lengths that the primitives are given and those that end with the vertices.
class LengthWalk {
public:
    explicit LengthWalk(const osg::GeometryPtr& geometry)
        : types(geometry->getTypes()), lengths(geometry->getLengths()), available(countVertices(geometry)) {}

    bool isAtEnd() const { return types == osg::NullFC || primitive >= types->getSize(); }
    void operator++() {
        available -= getFitting();
        ++primitive;
    }

    bool isGiven() const { return lengths != osg::NullFC && primitive < lengths->getSize(); }
    osg::UInt32 getGiven() const {
        if (isGiven()) return lengths->getValue(primitive);
        return lengths == osg::NullFC ? available : 0;
    }
    osg::UInt32 getFitting() const { return std::min(getGiven(), available); }
    /// Without a last element that would be completed with vertices that are not there.
    osg::UInt32 getWalkable() const {
        const ElementSize element = getElementSize(types->getValue(primitive));
        const osg::UInt32 begun = getFitting() % element.whole;
        const bool isLacking = begun > 0 && begun + (available - getFitting()) < element.begun;
        return getFitting() - (isLacking ? begun : 0);
    }

private:
    osg::GeoPTypesPtr types;
    osg::GeoPLengthsPtr lengths;
    osg::UInt32 available;
    osg::UInt32 primitive = 0;
};

bool isWalkable(const osg::GeometryPtr& geometry) {
    for (LengthWalk walk(geometry); !walk.isAtEnd(); ++walk)
        if (!walk.isGiven() || walk.getWalkable() != walk.getGiven()) return false;
    return true;
}

/// The positions' numbers of the vertices that the primitives have.
class UsedPositions {
public:
    explicit UsedPositions(const osg::GeometryPtr& geometry) : indices(geometry->getIndices()) {
        for (LengthWalk walk(geometry); !walk.isAtEnd(); ++walk) {
            areLengthsSound = areLengthsSound && walk.isGiven() && walk.getFitting() == walk.getGiven();
            count += walk.getFitting();
        }
        if (geometry->getIndexMapping().empty()) return;
        const osg::Int16 mapped = geometry->calcMappingIndex(osg::Geometry::MapPosition);
        // Where no index serves the positions, the indices stand for them one after the other.
        if (mapped < 0) return;
        slot = static_cast<osg::UInt32>(mapped);
        stride = getSlotCount(geometry);
    }

    bool haveSoundLengths() const { return areLengthsSound; }
    osg::UInt32 size() const { return count; }
    osg::UInt32 operator[](osg::UInt32 vertex) const {
        return indices != osg::NullFC ? indices->getValue(vertex * stride + slot) : vertex;
    }

private:
    osg::GeoIndicesPtr indices;
    osg::UInt32 stride = 1;
    osg::UInt32 slot = 0;
    osg::UInt32 count = 0;
    bool areLengthsSound = true;
};

void computeVolumeIfDoubtful(const osg::NodePtr& node) {
    const osg::GeometryPtr geometry = getGeometry(node);
    if (geometry == osg::NullFC || geometry->getPositions() == osg::NullFC) return;
    const osg::GeoPositionsPtr positions = geometry->getPositions();
    const auto positionCount = static_cast<osg::UInt32>(positions->getSize());
    const UsedPositions used(geometry);
    bool isSound = used.haveSoundLengths();
    for (osg::UInt32 vertex = 0; isSound && vertex < used.size(); ++vertex) isSound = used[vertex] < positionCount;
    if (isSound) return;

    osg::DynamicVolume& volume = node->getVolume(false);
    volume.getInstance().setEmpty();
    for (osg::UInt32 vertex = 0; vertex < used.size(); ++vertex)
        if (used[vertex] < positionCount) volume.getInstance().extendBy(positions->getValue(used[vertex]));
    volume.instanceChanged();
    volume.setValid();
}

} // namespace

osg::RefPtr<osg::GeometryPtr> createWalkable(const osg::GeometryPtr& geometry) {
    osg::RefPtr<osg::GeometryPtr> walkable;
    if (isWalkable(geometry)) return walkable;
    const osg::GeoPLengthsPtr lengths = osg::GeoPLengthsUI32::create();
    for (LengthWalk walk(geometry); !walk.isAtEnd(); ++walk) lengths->push_back(walk.getWalkable());
    walkable = osg::Geometry::create();
    walkable->setTypes(geometry->getTypes());
    walkable->setLengths(lengths);
    walkable->setPositions(geometry->getPositions());
    walkable->setIndices(geometry->getIndices());
    walkable->getIndexMapping() = geometry->getIndexMapping();
    return walkable;
}

void computeDoubtfulVolumes(const osg::NodePtr& node) {
    std::vector<osg::NodePtr> open{node};
    while (!open.empty()) {
        const osg::NodePtr next = open.back();
        open.pop_back();
        // Of such nodes no volume is computed, nor of what is below them.
        if (next == osg::NullFC || next->getVolume().isValid() || next->getTravMask() == 0) continue;
        computeVolumeIfDoubtful(next);
        for (osg::UInt32 child = 0; child < next->getNChildren(); ++child) open.push_back(next->getChild(child));
    }
}

} // namespace tesk::measurement::detail
