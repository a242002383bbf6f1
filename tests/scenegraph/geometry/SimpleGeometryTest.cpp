#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGSimpleGeometry.h>
#include <OpenSG/OSGTriangleIterator.h>

#include <gtest/gtest.h>

namespace {

struct Shape {
    const char* name;
    osg::GeometryRefPtr geometry;
    size_t primitiveCount;
    osg::UInt32 firstType, firstLength, positionCount, triangleCount;
    /// What it encloses, and by how much of that a faceted shape falls short; a plane encloses nothing.
    float volume, shortfall;
};

std::vector<Shape> shapes() {
    osg::osgInit(0, nullptr);
    const float ball = 4.0f / 3.0f * osg::Pi * 8.0f;
    const auto held = [](const osg::GeometryPtr& geometry) { return osg::GeometryRefPtr(geometry); };
    return {
        {"plane", held(osg::makePlaneGeo(2, 3, 2, 4)), 4, GL_TRIANGLE_STRIP, 6, 15, 16, 0, 0},
        {"box", held(osg::makeBoxGeo(1, 2, 3, 1, 1, 1)), 6, GL_TRIANGLE_STRIP, 4, 24, 12, 6, 1e-6f},
        {"fine box", held(osg::makeBoxGeo(1, 2, 3, 2, 3, 4)), 20, GL_TRIANGLE_STRIP, 6, 94, 104, 6, 1e-6f},
        {"icosahedron", held(osg::makeSphereGeo(0, 2)), 1, GL_TRIANGLES, 60, 12, 20, ball, 0.4f},
        {"sphere", held(osg::makeSphereGeo(3, 2)), 1, GL_TRIANGLES, 3840, 1272, 1280, ball, 0.02f},
        {"globe", held(osg::makeLatLongSphereGeo(20, 30, 2)), 30, GL_TRIANGLE_STRIP, 42, 651, 1200, ball, 0.02f},
        {"torus", held(osg::makeTorusGeo(0.5f, 2, 20, 30)), 20, GL_TRIANGLE_STRIP, 62, 651, 1200, osg::Pi * osg::Pi,
         0.03f},
        {"cylinder", held(osg::makeCylinderGeo(2, 1, 30)), 3, GL_TRIANGLE_STRIP, 62, 122, 116, osg::Pi * 2, 0.01f},
        {"cone", held(osg::makeConeGeo(3, 1, 30)), 2, GL_TRIANGLE_STRIP, 62, 92, 88, osg::Pi, 0.01f},
    };
}

TEST(SimpleGeometry, HasItsPrimitivesAndFacesOutward) {
    for (const Shape& shape : shapes()) {
        SCOPED_TRACE(shape.name);
        const osg::GeometryPtr geometry = shape.geometry;
        EXPECT_EQ(geometry->getTypes()->size(), shape.primitiveCount);
        EXPECT_EQ(geometry->getTypes()->getValue(0), shape.firstType);
        EXPECT_EQ(geometry->getLengths()->getValue(0), shape.firstLength);
        EXPECT_EQ(geometry->getPositions()->size(), shape.positionCount);

        osg::UInt32 count = 0;
        float volume = 0;
        for (auto it = geometry->beginTriangles(); it != geometry->endTriangles(); ++it, ++count) {
            const osg::Pnt3f p0 = it.getPosition(0), p1 = it.getPosition(1), p2 = it.getPosition(2);
            volume += p0.subZero().dot(p1.subZero().cross(p2.subZero())) / 6.0f;
            const osg::Vec3f face = (p1 - p0).cross(p2 - p0);
            for (osg::UInt32 which = 0; which < 3; ++which) {
                // The normals on a cone's side are longer than 1.
                EXPECT_NEAR(it.getNormal(which).length(), 1, shape.name == std::string("cone") ? 0.12f : 1e-5f);
                EXPECT_GT(it.getNormal(which).dot(face), -1e-6f) << "triangle " << it.getIndex();
            }
        }
        EXPECT_EQ(count, shape.triangleCount);
        EXPECT_LE(volume, shape.volume * 1.00001f);
        EXPECT_GE(volume, shape.volume * (1 - shape.shortfall));
    }
}

TEST(SimpleGeometry, SphereHasTwoIndicesForEachVertex) {
    osg::osgInit(0, nullptr);
    const osg::GeometryRefPtr sphere(osg::makeSphereGeo(2, 1));
    EXPECT_EQ(sphere->getLengths()->getValue(0), 960u);
    EXPECT_EQ(sphere->getIndices()->size(), 1920u);
    EXPECT_EQ(sphere->getIndexMapping(),
              (osg::MFUInt16{osg::Geometry::MapPosition | osg::Geometry::MapNormal, osg::Geometry::MapTexCoords}));
    for (auto it = sphere->beginTriangles(); it != sphere->endTriangles(); ++it)
        for (osg::UInt32 which = 0; which < 3; ++which)
            EXPECT_LE(std::abs(it.getTexCoords(which)[0] - it.getTexCoords((which + 1) % 3)[0]), 0.5f)
                << "the texture of triangle " << it.getIndex() << " runs the long way round";
}

TEST(SimpleGeometry, RefusesWhatMakesNoShape) {
    osg::osgInit(0, nullptr);
    for (const osg::NodePtr& node :
         {osg::makePlane(1, 1, 0, 1), osg::makePlane(1, 1, 65535, 65535), osg::makeBox(1, 1, 1, 1, 1, 0),
          osg::makeSphere(11, 1), osg::makeLatLongSphere(3, 4, 1), osg::makeLatLongSphere(4, 4, 0),
          osg::makeTorus(1, 1, 2, 3), osg::makeTorus(1, NAN, 3, 3), osg::makeCylinder(1, 1, 2),
          osg::makeCylinder(0, 1, 3), osg::makeCone(1, -1, 3)})
        EXPECT_TRUE(node == osg::NullFC);
}

} // namespace
