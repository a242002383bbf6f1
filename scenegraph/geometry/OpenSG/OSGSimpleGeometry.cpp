#include <OpenSG/OSGSimpleGeometry.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGSimpleMaterial.h>

#include <cmath>

namespace osg {

namespace {

/// What a shape consists of, before it becomes properties.
struct Shape {
    MFPnt3f positions;
    MFVec3f normals;
    MFVec2f texCoords;
    MFUInt32 indices;
    MFUInt8 types;
    MFUInt32 lengths;

    UInt32 addVertex(const Pnt3f& position, const Vec3f& normal, const Vec2f& texCoord) {
        positions.push_back(position);
        normals.push_back(normal);
        texCoords.push_back(texCoord);
        return positions.getSize() - 1;
    }
    void addPrimitive(UInt8 type, UInt32 length) {
        types.push_back(type);
        lengths.push_back(length);
    }
};

template <class Property, class Field> typename Property::Ptr toProperty(Field& elements) {
    const auto property = Property::create();
    property->getField().swap(elements);
    return property;
}

GeometryPtr toGeometry(Shape& shape, std::initializer_list<UInt16> mapping) {
    const GeometryPtr geometry = Geometry::create();
    if (geometry == NullFC) return geometry;
    geometry->setTypes(toProperty<GeoPTypesUI8>(shape.types));
    geometry->setLengths(toProperty<GeoPLengthsUI32>(shape.lengths));
    geometry->setPositions(toProperty<GeoPositions3f>(shape.positions));
    geometry->setNormals(toProperty<GeoNormals3f>(shape.normals));
    geometry->setTexCoords(toProperty<GeoTexCoords2f>(shape.texCoords));
    geometry->setIndices(toProperty<GeoIndicesUI32>(shape.indices));
    geometry->getIndexMapping() = mapping;
    geometry->setMaterial(getDefaultMaterial());
    return geometry;
}

GeometryPtr toSingleIndexGeometry(Shape& shape) {
    return toGeometry(shape, {Geometry::MapPosition | Geometry::MapNormal | Geometry::MapTexCoords});
}

NodePtr toNode(const GeometryPtr& geometry) { return geometry == NullFC ? NodePtr() : makeNodeFor(geometry); }

/// Whether a lattice of that many fields has fields, and not too many.
bool isLattice(UInt32 columns, UInt32 rows) {
    constexpr UInt64 largestVertexCount = UInt64(1) << 26;
    return columns >= 1 && rows >= 1 && (UInt64(columns) + 1) * (UInt64(rows) + 1) <= largestVertexCount;
}

/// A lattice of columns by rows fields whose vertices, row by row, start with number first.
struct Lattice {
    UInt32 first, columns, rows;

    UInt32 vertex(UInt32 column, UInt32 row) const { return first + row * (columns + 1) + column; }
};

void addStripPerRow(Shape& shape, const Lattice& lattice) {
    for (UInt32 row = 0; row < lattice.rows; ++row) {
        for (UInt32 column = 0; column <= lattice.columns; ++column) {
            shape.indices.push_back(lattice.vertex(column, row + 1));
            shape.indices.push_back(lattice.vertex(column, row));
        }
        shape.addPrimitive(GL_TRIANGLE_STRIP, 2 * (lattice.columns + 1));
    }
}

void addStripPerColumn(Shape& shape, const Lattice& lattice) {
    for (UInt32 column = 0; column < lattice.columns; ++column) {
        for (UInt32 row = 0; row <= lattice.rows; ++row) {
            shape.indices.push_back(lattice.vertex(column, row));
            shape.indices.push_back(lattice.vertex(column + 1, row));
        }
        shape.addPrimitive(GL_TRIANGLE_STRIP, 2 * (lattice.rows + 1));
    }
}

Real32 fraction(UInt32 part, UInt32 whole) { return static_cast<Real32>(part) / static_cast<Real32>(whole); }

/// A rectangle spanned from a corner by two edges.
void addRectangle(Shape& shape, const Vec3f& normal, const Pnt3f& corner, const Vec3f& right, const Vec3f& up,
                  UInt32 columns, UInt32 rows) {
    Vec3f columnStep = right, rowStep = up;
    columnStep /= static_cast<Real32>(columns);
    rowStep /= static_cast<Real32>(rows);
    const Lattice lattice{shape.positions.getSize(), columns, rows};
    for (UInt32 row = 0; row <= rows; ++row)
        for (UInt32 column = 0; column <= columns; ++column)
            shape.addVertex(corner + columnStep * static_cast<Real32>(column) + rowStep * static_cast<Real32>(row),
                            normal, Vec2f(fraction(column, columns), fraction(row, rows)));
    addStripPerRow(shape, lattice);
}

/// A sphere that grows from an icosahedron.
struct SphereShape : Shape {
    Real32 radius;

    explicit SphereShape(Real32 newRadius) : radius(newRadius) {}

    UInt32 addMidpoint(UInt32 start, UInt32 end) {
        // Not the same to the bit from the end to the start, so neighbours do not share it.
        Vec3f middle(positions[start] + (positions[end] - positions[start]) * 0.5f);
        middle.normalize();
        normals.push_back(middle);
        positions.push_back(middle.addToZero() * radius);
        return positions.getSize() - 1;
    }
    void addRefined(UInt32 a, UInt32 b, UInt32 c, UInt32 depth) {
        if (depth == 0) {
            for (const UInt32 vertex : {a, b, c}) indices.push_back(vertex);
            return;
        }
        const UInt32 ab = addMidpoint(a, b);
        const UInt32 bc = addMidpoint(b, c);
        const UInt32 ca = addMidpoint(c, a);
        addRefined(a, ab, ca, depth - 1);
        addRefined(b, bc, ab, depth - 1);
        addRefined(c, ca, bc, depth - 1);
        addRefined(ab, bc, ca, depth - 1);
    }
};

/// Rounded as the scene graph's spheres always were: the poles of the x axis are not quite on it.
const Vec3f icosahedronVertices[] = {
    {0.99999994f, 0.0f, -1.1920929e-07f},         {0.447213471f, 0.0f, -0.89442718f},
    {-0.447213471f, 0.0f, 0.89442718f},           {-0.99999994f, 0.0f, 1.1920929e-07f},
    {0.447213531f, 0.850650787f, -0.276393235f},  {-0.447213531f, 0.850650787f, 0.276393235f},
    {0.447213531f, -0.850650787f, -0.276393235f}, {-0.447213531f, -0.850650787f, 0.276393235f},
    {-0.44721365f, 0.525731087f, -0.723606706f},  {0.44721365f, 0.525731087f, 0.723606706f},
    {-0.44721365f, -0.525731087f, -0.723606706f}, {0.44721365f, -0.525731087f, 0.723606706f},
};

constexpr UInt8 icosahedronTriangles[][3] = {
    {1, 4, 0}, {4, 9, 0},  {4, 5, 9},  {8, 5, 4},  {1, 8, 4},  {1, 10, 8}, {10, 3, 8},
    {8, 3, 5}, {3, 2, 5},  {3, 7, 2},  {3, 10, 7}, {10, 6, 7}, {6, 11, 7}, {6, 0, 11},
    {6, 1, 0}, {10, 1, 6}, {11, 0, 9}, {2, 11, 9}, {5, 2, 9},  {11, 2, 7},
};

/// Longitude round the y axis and latitude, both from 0 to 1.
Vec2f sphereTexCoord(const Vec3f& normal) {
    return Vec2f(0.5f + std::atan2(normal[0], normal[2]) / (2.0f * Pi), (Pi - std::acos(normal[1])) / Pi);
}

/// Texture coordinates, where the longitude of a corner on its seam depends on the triangle.
void addSphereTexCoords(Shape& shape) {
    constexpr Real32 tolerance = 1e-5f;
    for (const Vec3f& normal : shape.normals) shape.texCoords.push_back(sphereTexCoord(normal));
    const MFUInt32 corners = std::move(shape.indices);
    shape.indices.clear();
    for (size_t i = 0; i < corners.size(); ++i) {
        const Vec3f& normal = shape.normals[corners[i]];
        shape.indices.push_back(corners[i]);
        if (osgabs(normal[0]) > tolerance || normal[2] > tolerance) {
            shape.indices.push_back(corners[i]);
            continue;
        }
        const size_t triangle = i - i % 3;
        Real32 side = 0.0f;
        for (size_t k = 0; k < 3; ++k) side += shape.normals[corners[triangle + k]][0];
        const bool isPole = normal[2] > -tolerance;
        shape.indices.push_back(shape.texCoords.getSize());
        shape.texCoords.push_back(Vec2f(isPole ? 0.5f : side > 0.0f ? 1.0f : 0.0f, shape.texCoords[corners[i]][1]));
    }
}

void addConicalSide(Shape& shape, Real32 height, Real32 topRadius, Real32 bottomRadius, UInt32 sides) {
    const Real32 step = 2.0f * Pi / static_cast<Real32>(sides);
    const Real32 slope = (bottomRadius - topRadius) / height;
    // Deliberate: the normals of a cone come out longer than 1; those of a cylinder have length 1.
    const Real32 divisor = 1.0f / osgsqrt(1.0f + slope * slope);
    const Lattice lattice{shape.positions.getSize(), sides, 1};
    for (const bool top : {true, false}) {
        const Real32 radius = top ? topRadius : bottomRadius;
        for (UInt32 side = 0; side <= sides; ++side) {
            const Real32 x = osgsin(static_cast<Real32>(side) * step);
            const Real32 z = -osgcos(static_cast<Real32>(side) * step);
            const Vec3f normal(x / divisor, slope / divisor, z / divisor);
            shape.addVertex(Pnt3f(x * radius, height * (top ? 0.5f : -0.5f), z * radius), normal,
                            Vec2f(1.0f - fraction(side, sides), top ? 1.0f : 0.0f));
        }
    }
    addStripPerRow(shape, lattice);
}

/// A disk across the y axis, facing away from the origin.
void addCap(Shape& shape, Real32 y, Real32 radius, UInt32 sides) {
    const Real32 step = 2.0f * Pi / static_cast<Real32>(sides);
    const Real32 facing = y > 0.0f ? 1.0f : -1.0f;
    const UInt32 first = shape.positions.getSize();
    for (UInt32 side = sides; side-- > 0;) {
        const Real32 x = osgsin(static_cast<Real32>(side) * step);
        const Real32 z = -osgcos(static_cast<Real32>(side) * step);
        const Pnt3f position(x * radius, y, z * radius);
        shape.addVertex(position, Vec3f(0.0f, facing, 0.0f),
                        Vec2f((position[0] / radius + 1.0f) * 0.5f, (1.0f - facing * position[2] / radius) * 0.5f));
    }
    for (UInt32 i = 0; i < sides; ++i) shape.indices.push_back(first + (facing > 0.0f ? i : sides - 1 - i));
    shape.addPrimitive(GL_POLYGON, sides);
}

/// A cylinder or cone along the y axis; what is not wanted has no vertices either.
GeometryPtr makeConicalGeo(Real32 height, Real32 topRadius, Real32 bottomRadius, UInt16 sides, bool doSide, bool doTop,
                           bool doBottom) {
    // Written so that NaN is refused.
    if (!(height > 0.0f && topRadius >= 0.0f && bottomRadius >= 0.0f) || sides < 3) return NullFC;
    Shape shape;
    if (doSide) addConicalSide(shape, height, topRadius, bottomRadius, sides);
    if (doTop) addCap(shape, height * 0.5f, topRadius, sides);
    if (doBottom) addCap(shape, height * -0.5f, bottomRadius, sides);
    return toSingleIndexGeometry(shape);
}

MaterialPtr defaultMaterial, defaultUnlitMaterial;

bool releaseDefaultMaterials() {
    clearRefCP(defaultMaterial);
    clearRefCP(defaultUnlitMaterial);
    return true;
}

void makeDefaultMaterials() {
    const SimpleMaterialPtr lit = SimpleMaterial::create(), unlit = SimpleMaterial::create();
    if (lit == NullFC) return;
    lit->setDiffuse(Color3f(0.7f, 0.7f, 0.5f));
    lit->setAmbient(Color3f(0.1f, 0.1f, 0.1f));
    lit->setSpecular(Color3f(1.0f, 1.0f, 1.0f));
    lit->setShininess(20.0f);
    endEditCP(lit);
    unlit->setDiffuse(Color3f(1.0f, 1.0f, 0.5f));
    unlit->setLit(false);
    endEditCP(unlit);
    setRefdCP(defaultMaterial, lit);
    setRefdCP(defaultUnlitMaterial, unlit);
    addSystemExitFunction(releaseDefaultMaterials);
}

} // namespace

MaterialPtr getDefaultMaterial() {
    if (defaultMaterial == NullFC) makeDefaultMaterials();
    return defaultMaterial;
}

MaterialPtr getDefaultUnlitMaterial() {
    if (defaultUnlitMaterial == NullFC) makeDefaultMaterials();
    return defaultUnlitMaterial;
}

GeometryPtr makePlaneGeo(Real32 xsize, Real32 ysize, UInt16 hor, UInt16 vert) {
    if (!isLattice(hor, vert)) return NullFC;
    Shape shape;
    addRectangle(shape, Vec3f(0, 0, 1), Pnt3f(-xsize * 0.5f, -ysize * 0.5f, 0), Vec3f(xsize, 0, 0), Vec3f(0, ysize, 0),
                 hor, vert);
    return toSingleIndexGeometry(shape);
}

GeometryPtr makeBoxGeo(Real32 xsize, Real32 ysize, Real32 zsize, UInt16 hor, UInt16 vert, UInt16 depth) {
    if (!isLattice(hor, vert) || !isLattice(depth, vert) || !isLattice(hor, depth)) return NullFC;
    const Real32 x = xsize * 0.5f, y = ysize * 0.5f, z = zsize * 0.5f;
    const Vec3f right(xsize, 0, 0), up(0, ysize, 0), front(0, 0, zsize);
    Shape shape;
    addRectangle(shape, Vec3f(0, 0, 1), Pnt3f(-x, -y, z), right, up, hor, vert);
    addRectangle(shape, Vec3f(0, 0, -1), Pnt3f(x, -y, -z), -right, up, hor, vert);
    addRectangle(shape, Vec3f(1, 0, 0), Pnt3f(x, -y, z), -front, up, depth, vert);
    addRectangle(shape, Vec3f(-1, 0, 0), Pnt3f(-x, -y, -z), front, up, depth, vert);
    addRectangle(shape, Vec3f(0, 1, 0), Pnt3f(-x, y, z), right, -front, hor, depth);
    addRectangle(shape, Vec3f(0, -1, 0), Pnt3f(-x, -y, -z), right, front, hor, depth);
    return toSingleIndexGeometry(shape);
}

GeometryPtr makeSphereGeo(UInt16 depth, Real32 radius) {
    constexpr UInt16 largestDepth = 10;
    if (depth > largestDepth) return NullFC;
    SphereShape shape(radius);
    for (const Vec3f& vertex : icosahedronVertices) {
        Vec3f normal = vertex;
        normal.normalize();
        shape.normals.push_back(normal);
        shape.positions.push_back(vertex.addToZero() * (radius / vertex.length()));
    }
    for (const auto& [a, b, c] : icosahedronTriangles) shape.addRefined(a, b, c, depth);
    shape.addPrimitive(GL_TRIANGLES, shape.indices.getSize());
    addSphereTexCoords(shape);
    return toGeometry(shape, {Geometry::MapPosition | Geometry::MapNormal, Geometry::MapTexCoords});
}

GeometryPtr makeLatLongSphereGeo(UInt16 latres, UInt16 longres, Real32 radius) {
    if (latres < 4 || longres < 4 || !isLattice(longres, latres) || !(radius > 0.0f)) return NullFC;
    const Real32 latitudeStep = Pi / static_cast<Real32>(latres);
    const Real32 longitudeStep = 2.0f * Pi / static_cast<Real32>(longres);
    Shape shape;
    Real32 latitude = -Pi * 0.5f;
    for (UInt32 row = 0; row <= latres; ++row, latitude += latitudeStep) {
        Real32 longitude = -Pi;
        for (UInt32 column = 0; column <= longres; ++column, longitude += longitudeStep) {
            const Vec3f normal(osgcos(latitude) * osgsin(longitude), osgsin(latitude),
                               osgcos(latitude) * osgcos(longitude));
            shape.addVertex(normal.addToZero() * radius, normal,
                            Vec2f(fraction(column, longres), fraction(row, latres)));
        }
    }
    addStripPerColumn(shape, {0, longres, latres});
    return toSingleIndexGeometry(shape);
}

GeometryPtr makeTorusGeo(Real32 innerRadius, Real32 outerRadius, UInt16 sides, UInt16 rings) {
    if (sides < 3 || rings < 3 || !isLattice(sides, rings) || !(innerRadius > 0.0f && outerRadius > 0.0f))
        return NullFC;
    const Real32 ringStep = 2.0f * Pi / static_cast<Real32>(rings);
    const Real32 sideStep = 2.0f * Pi / static_cast<Real32>(sides);
    Shape shape;
    Real32 ringAngle = 0.0f;
    for (UInt32 ring = 0; ring <= rings; ++ring, ringAngle += ringStep) {
        const Real32 x = osgcos(ringAngle), y = -osgsin(ringAngle);
        Real32 sideAngle = 0.0f;
        for (UInt32 side = 0; side <= sides; ++side, sideAngle += sideStep) {
            const Real32 outward = osgcos(sideAngle), z = osgsin(sideAngle);
            const Real32 distance = outerRadius + innerRadius * outward;
            shape.addVertex(Pnt3f(x * distance, y * distance, z * innerRadius), Vec3f(x * outward, y * outward, z),
                            Vec2f(0.0f - fraction(ring, rings), fraction(side, sides)));
        }
    }
    addStripPerColumn(shape, {0, sides, rings});
    return toSingleIndexGeometry(shape);
}

GeometryPtr makeCylinderGeo(Real32 height, Real32 radius, UInt16 sides, bool doSide, bool doTop, bool doBottom) {
    return makeConicalGeo(height, radius, radius, sides, doSide, doTop, doBottom);
}

GeometryPtr makeConeGeo(Real32 height, Real32 radius, UInt16 sides, bool doSide, bool doBottom) {
    return makeConicalGeo(height, 0.0f, radius, sides, doSide, false, doBottom);
}

NodePtr makePlane(Real32 xsize, Real32 ysize, UInt16 hor, UInt16 vert) {
    return toNode(makePlaneGeo(xsize, ysize, hor, vert));
}

NodePtr makeBox(Real32 xsize, Real32 ysize, Real32 zsize, UInt16 hor, UInt16 vert, UInt16 depth) {
    return toNode(makeBoxGeo(xsize, ysize, zsize, hor, vert, depth));
}

NodePtr makeSphere(UInt16 depth, Real32 radius) { return toNode(makeSphereGeo(depth, radius)); }

NodePtr makeLatLongSphere(UInt16 latres, UInt16 longres, Real32 radius) {
    return toNode(makeLatLongSphereGeo(latres, longres, radius));
}

NodePtr makeTorus(Real32 innerRadius, Real32 outerRadius, UInt16 sides, UInt16 rings) {
    return toNode(makeTorusGeo(innerRadius, outerRadius, sides, rings));
}

NodePtr makeCylinder(Real32 height, Real32 radius, UInt16 sides, bool doSide, bool doTop, bool doBottom) {
    return toNode(makeCylinderGeo(height, radius, sides, doSide, doTop, doBottom));
}

NodePtr makeCone(Real32 height, Real32 radius, UInt16 sides, bool doSide, bool doBottom) {
    return toNode(makeConeGeo(height, radius, sides, doSide, doBottom));
}

} // namespace osg
