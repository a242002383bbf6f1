#include <rendering/picture/ShadedGeometry.h>

#include <OpenSG/OSGLineIterator.h>
#include <OpenSG/OSGTriangleIterator.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace tesk::rendering {

namespace {

struct Facet {
    std::array<osg::Pnt3f, 3> corners;
    std::array<osg::UInt32, 3> positionIndices;
    /// As long as twice the area.
    osg::Vec3f areaNormal;
    osg::Vec3f unitNormal;
};

std::vector<Facet> collectFacets(const osg::GeometryPtr& geometry) {
    std::vector<Facet> facets;
    const auto end = geometry->endTriangles();
    for (auto triangle = geometry->beginTriangles(); triangle != end; ++triangle) {
        Facet facet;
        for (osg::UInt16 corner = 0; corner < 3; ++corner) {
            facet.corners[corner] = triangle.getPosition(corner);
            facet.positionIndices[corner] = static_cast<osg::UInt32>(triangle.getPositionIndex(corner));
        }
        const osg::Vec3f edge = facet.corners[1] - facet.corners[0];
        facet.areaNormal = edge.cross(facet.corners[2] - facet.corners[0]);
        const float length = facet.areaNormal.length();
        // False for NaN as well.
        if (!(length > 0.0f && std::isfinite(length))) continue;
        facet.unitNormal = facet.areaNormal * (1.0f / length);
        facets.push_back(facet);
    }
    return facets;
}

/// Which facets lie round a position.
class FacetsByPosition {
public:
    explicit FacetsByPosition(const std::vector<Facet>& facets) {
        for (const Facet& facet : facets) {
            for (const osg::UInt32 position : facet.positionIndices) {
                if (position + 2 > starts.size()) starts.resize(std::size_t{position} + 2);
                ++starts[std::size_t{position} + 1];
            }
        }
        for (std::size_t i = 1; i < starts.size(); ++i) starts[i] += starts[i - 1];
        members.resize(3 * facets.size());
        std::vector<std::size_t> next = starts;
        for (std::size_t facet = 0; facet < facets.size(); ++facet)
            for (const osg::UInt32 position : facets[facet].positionIndices) members[next[position]++] = facet;
    }

    const std::size_t* begin(osg::UInt32 position) const { return members.data() + starts[position]; }
    const std::size_t* end(osg::UInt32 position) const { return members.data() + starts[std::size_t{position} + 1]; }

private:
    std::vector<std::size_t> starts;
    std::vector<std::size_t> members;
};

osg::Vec3f cornerNormal(const std::vector<Facet>& facets, const FacetsByPosition& byPosition, const Facet& own,
                        std::size_t corner) {
    constexpr float cosineOfCrease = 0.766f;
    // More would take time that grows with the square of their number; the hub of a fan is flat or a tip.
    constexpr std::ptrdiff_t mostNeighbours = 64;
    const osg::UInt32 position = own.positionIndices[corner];
    const std::size_t* const end = byPosition.end(position);
    if (end - byPosition.begin(position) > mostNeighbours) return own.unitNormal;
    osg::Vec3f sum(0.0f, 0.0f, 0.0f);
    for (const std::size_t* neighbour = byPosition.begin(position); neighbour != end; ++neighbour) {
        const Facet& facet = facets[*neighbour];
        const float cosine = own.unitNormal.dot(facet.unitNormal);
        if (cosine >= cosineOfCrease) sum += facet.areaNormal;
        if (cosine <= -cosineOfCrease) sum -= facet.areaNormal;
    }
    sum.normalize();
    return sum;
}

osg::GeometryPtr makeUnindexed(osg::UInt8 type, const osg::GeoPositions3fPtr& positions) {
    const osg::GeoPTypesUI8Ptr types = osg::GeoPTypesUI8::create();
    types->push_back(type);
    const osg::GeoPLengthsUI32Ptr lengths = osg::GeoPLengthsUI32::create();
    lengths->push_back(static_cast<osg::UInt32>(positions->getField().size()));
    const osg::GeometryPtr geometry = osg::Geometry::create();
    const osg::CPEditor editor(geometry);
    geometry->setTypes(types);
    geometry->setLengths(lengths);
    geometry->setPositions(positions);
    return geometry;
}

} // namespace

osg::GeometryPtr makeShadedTriangles(const osg::GeometryPtr& geometry) {
    const std::vector<Facet> facets = collectFacets(geometry);
    if (facets.empty()) return osg::NullFC;
    const FacetsByPosition byPosition(facets);
    const osg::GeoPositions3fPtr positions = osg::GeoPositions3f::create();
    const osg::GeoNormals3fPtr normals = osg::GeoNormals3f::create();
    positions->getField().reserve(3 * facets.size());
    normals->getField().reserve(3 * facets.size());
    for (const Facet& facet : facets) {
        for (std::size_t corner = 0; corner < 3; ++corner) {
            positions->push_back(facet.corners[corner]);
            normals->push_back(cornerNormal(facets, byPosition, facet, corner));
        }
    }
    const osg::GeometryPtr shaded = makeUnindexed(GL_TRIANGLES, positions);
    const osg::CPEditor editor(shaded, osg::Geometry::NormalsFieldMask);
    shaded->setNormals(normals);
    return shaded;
}

void sortBackToFront(const osg::GeometryPtr& shaded, const osg::Pnt3f& eye) {
    auto& positions = osg::GeoPositions3fPtr::dcast(shaded->getPositions())->getField();
    auto& normals = osg::GeoNormals3fPtr::dcast(shaded->getNormals())->getField();
    std::vector<std::pair<float, std::size_t>> order;
    for (std::size_t first = 0; first + 2 < positions.size(); first += 3) {
        const auto toCorner = [&](std::size_t corner) { return positions[first + corner] - eye; };
        order.emplace_back((toCorner(0) + toCorner(1) + toCorner(2)).squareLength(), first);
    }
    std::sort(order.begin(), order.end(), std::greater<>());
    const auto oldPositions = positions;
    const auto oldNormals = normals;
    for (std::size_t i = 0; i < order.size(); ++i) {
        for (std::size_t corner = 0; corner < 3; ++corner) {
            positions[3 * i + corner] = oldPositions[order[i].second + corner];
            normals[3 * i + corner] = oldNormals[order[i].second + corner];
        }
    }
    const osg::CPEditor editor(shaded, osg::Geometry::PositionsFieldMask | osg::Geometry::NormalsFieldMask);
}

osg::GeometryPtr makeLines(const osg::GeometryPtr& geometry) {
    const osg::GeoPositions3fPtr positions = osg::GeoPositions3f::create();
    const auto end = geometry->endLines();
    for (auto line = geometry->beginLines(); line != end; ++line) {
        positions->push_back(line.getPosition(0));
        positions->push_back(line.getPosition(1));
    }
    // Held by nothing but this function until it is part of a geometry.
    const osg::RefPtr<osg::GeoPositions3fPtr> held(positions);
    return positions->getField().empty() ? osg::GeometryPtr(osg::NullFC) : makeUnindexed(GL_LINES, positions);
}

} // namespace tesk::rendering
