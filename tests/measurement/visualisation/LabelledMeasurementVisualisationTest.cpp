// Under sanitizers GCC 12 takes the standard library's regular expressions to read what was never written.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

#include <measurement/model/CircleMeasurement.h>
#include <measurement/model/PointPointMeasurement.h>
#include <measurement/visualisation/CircleMeasurementVisualisation.h>
#include <measurement/visualisation/SimpleMeasurementVisualisation.h>
#include <measurement/visualisation/detail/FixedNumber.h>
#include <measurement/visualisation/detail/MeasurementPoints.h>
#include <platform/font/FontManager.h>

#include <OpenSG/OSGTextLayoutParam.h>
#include <OpenSG/OSGTextLayoutResult.h>

#include <support/Primitives.h>
#include <support/Random.h>
#include <support/SceneText.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <regex>
#include <sstream>

namespace tesk::test {

using measurement::CircleMeasurementVisualisation;
using measurement::SimpleMeasurementVisualisation;

namespace {

const bool started = osg::osgInit(0, nullptr);

enum SimpleChild { simpleLine, simpleHeads, simpleLabel };
enum CircleChild { ring, circleLabel = 7, axis, stroke };

struct Distance : measurement::PointPointMeasurement {
    Distance(const osg::Pnt3f& start, const osg::Pnt3f& end) : PointPointMeasurement(nullptr) { set(start, end); }
    void set(const osg::Pnt3f& start, const osg::Pnt3f& end) {
        setPoint1(osg::NullFC, start);
        setPoint2(osg::NullFC, end);
    }
};

struct Circle : measurement::CircleMeasurement {
    Circle(const osg::Pnt3f& a, const osg::Pnt3f& b, const osg::Pnt3f& c) : CircleMeasurement(nullptr) {
        setPoint1(osg::NullFC, a);
        setPoint2(osg::NullFC, b);
        setPoint3(osg::NullFC, c);
    }
};

osg::GeometryPtr geometryOf(const osg::NodePtr& node) { return osg::GeometryPtr::dcast(node->getCore()); }

osg::GeometryPtr textOf(const osg::NodePtr& subtree, osg::UInt32 labelChild) {
    return geometryOf(subtree->getChild(labelChild)->getChild(0));
}

std::string pointsOf(const osg::GeometryPtr& geometry) {
    std::ostringstream text;
    for (osg::UInt32 i = 0; i < geometry->getPositions()->size(); ++i)
        text << geometry->getPositions()->getValue(i) << "\n";
    return text.str();
}

/// The points of a text whose last baseline is y = 0.
std::string pointsOf(const std::vector<std::string>& lines) {
    auto* face = font::FontManager::getInstance()->createTXFFace("Arial Unicode MS", osg::TextFace::STYLE_PLAIN, 64.0f);
    osg::TextLayoutResult layout;
    face->layout(lines, osg::TextLayoutParam(), layout);
    return pointsOf(face->makeGeo(layout, 1.0f, osg::Vec2f(0.0f, static_cast<float>(lines.size()) - 1.0f)));
}

std::string replaced(const std::string& text, const char* part, const std::string& replacement) {
    return std::regex_replace(text, std::regex(part), replacement);
}

void expectMatches(const std::string& text, std::initializer_list<const char*> patterns) {
    for (const char* pattern : patterns)
        EXPECT_TRUE(std::regex_search(text, std::regex(pattern))) << pattern << " in\n" << text;
}

bool isShown(const osg::NodePtr& subtree, osg::UInt32 child) { return subtree->getChild(child)->getTravMask() != 0; }

/// With a finite volume, whatever is in it.
osg::DynamicVolume volumeOf(const osg::NodePtr& node) {
    osg::DynamicVolume volume;
    node->getWorldVolume(volume);
    EXPECT_TRUE(measurement::isValid(volume.getMin()) && measurement::isValid(volume.getMax()));
    return volume;
}

} // namespace

TEST(SimpleMeasurementVisualisation, ShowsAnArrowAndALabelThatShareAllButTheirPoints) {
    if (!hasFont()) GTEST_SKIP() << "no font";
    const Distance alongX({0, 0, 0}, {10, 0, 0}), alongY({1, 2, 3}, {1, 12, 3});
    const Circle circle({1, 0, 0}, {0, 1, 0}, {-1, 0, 0});
    SimpleMeasurementVisualisation visualisation;
    visualisation.addMeasurement(&alongX);
    visualisation.setScaleLimits(0.5f, 2.0f);
    visualisation.setTextScale(0.2f);
    visualisation.addMeasurement(&circle);
    visualisation.addMeasurement(&alongY);
    const osg::NodePtr root = visualisation.getVisualisation();

    const std::string subtree = R"(  Group
    Geometry: Lines 0 1, Points 0 1; P#; M1
    Geometry: Triangles 2 3 4 2 4 5 2 5 6 2 6 3 3 4 5 3 5 6 7 8 9 7 9 10 7 10 11 7 11 8 8 9 10 8 10 11; P#; M2
    Camboard: at BOARD
      Geometry: Quads 16; textured; 16 x (1 0.8 0.3); M3
      Geometry: Triangles 12 13 14 12 14 15; P#; M4
      Geometry: LineLoop 16 17 18 19, Points 16 17 18 19; P#; M5
      Geometry: LineLoop 16 17 18 19; P#; M6
)";
    osg::Vec2f size;
    visualisation.updateText(&alongX, root->getChild(0), osg::Pnt2f(), size);
    std::ostringstream right;
    right << size[0] + 0.2f;
    const std::string plates = "(-0.2 -0.2 -0.1) (R -0.2 -0.1) (R 0.9 -0.1) (-0.2 0.9 -0.1) "
                               "(-0.2 -0.2 0) (R -0.2 0) (R 0.9 0) (-0.2 0.9 0)";
    const std::string rest = R"(P1: (0 0 0) (10 0 0) \
(0 0 0) (1 0.2 0.2) (1 -0.2 0.2) (1 -0.2 -0.2) (1 0.2 -0.2) \
(10 0 0) (9 0.2 0.2) (9 -0.2 0.2) (9 -0.2 -0.2) (9 0.2 -0.2) PLATES
P2: (1 2 3) (1 12 3) \
(1 2 3) (1.2 3 2.8) (1.2 3 3.2) (0.8 3 3.2) (0.8 3 2.8) \
(1 12 3) (1.2 11 2.8) (1.2 11 3.2) (0.8 11 3.2) (0.8 11 2.8) PLATES
M1: SimpleMaterial (1 0.8 0.2), unlit; key 64020; lines 2 smooth; blending; over the scene
M2: SimpleMaterial (1 0.8 0.2), unlit; lines 2 smooth; blending
M3: ChunkMaterial; key 64030; color (1 0.8 0.3 1), unlit; TextureChunk; blending; over the scene
M4: ChunkMaterial; key 64030; blending; over the scene; color (0.3 0.3 0.3 0.5), unlit
M5: ChunkMaterial; key 64030; lines 4 smooth; blending; PolygonChunk; over the scene; color (0 0 0 0), unlit
M6: SimpleMaterial (1 0.8 0.2), unlit; key 64030; lines 2 smooth; blending; over the scene
)";
    EXPECT_EQ(sceneText(root),
              "Group\n" + replaced(replaced(subtree, "#", "1"), "BOARD", "(5 0 0) scale 0.1 limits 1 1") +
                  replaced(replaced(subtree, "#", "2"), "BOARD", "(1 7 3) scale 0.2 limits 0.5 2") +
                  replaced(replaced(rest, R"(\\\n)", ""), "PLATES", replaced(plates, "R", right.str())));
}

TEST(SimpleMeasurementVisualisation, WritesTheValueWithTheGivenDigits) {
    if (!hasFont()) GTEST_SKIP() << "no font";
    const Distance distance({0, 0, 0}, {12.345f, 0, 0});
    SimpleMeasurementVisualisation visualisation;
    visualisation.addMeasurement(&distance);
    const std::pair<int, const char*> rows[] = {{1, "12.3"}, {0, "12"}, {3, "12.345"}};
    for (const auto& [digits, text] : rows) {
        visualisation.setPrecision(digits);
        EXPECT_EQ(pointsOf(textOf(visualisation.getVisualisations().at(&distance), simpleLabel)), pointsOf({text}));
    }
    using measurement::detail::fixedNumber;
    EXPECT_EQ(fixedNumber(-0.25f, -1), "-0.250000");
    EXPECT_EQ(fixedNumber(std::numeric_limits<float>::infinity(), 2), "inf");
    EXPECT_EQ(fixedNumber(std::numeric_limits<double>::lowest(), std::numeric_limits<int>::max()).size(), 1385u);
}

TEST(SimpleMeasurementVisualisation, HasSquareHeadsInEveryDirection) {
    Random random(3);
    for (int run = 0; run < 1000; ++run) {
        const measurement::Segment line = random.segment(10.0f);
        const osg::Vec3f head = measurement::detail::headVector(line.start, line.end);
        const auto points = measurement::detail::arrowPoints(line.start, line.end, head);
        const float tolerance = 1e-5f * head.length() + 4e-6f;
        for (unsigned corner = 0; corner < 4; ++corner) {
            const osg::Vec3f diagonal = points[3 + corner] - (line.start + head);
            ASSERT_NEAR(diagonal.length(), 0.2f * head.length() * std::sqrt(2.0f), tolerance) << line;
            ASSERT_NEAR(diagonal.dot(head) / head.length(), 0.0f, tolerance) << line;
            ASSERT_NEAR(diagonal.dot(points[3 + (corner + 1) % 4] - (line.start + head)), 0.0f, tolerance) << line;
        }
    }
}

TEST(SimpleMeasurementVisualisation, ShowsNewColorsAtOnceInWhatIsShown) {
    if (!hasFont()) GTEST_SKIP() << "no font";
    const Distance distance({0, 0, 0}, {1, 0, 0});
    SimpleMeasurementVisualisation visualisation;
    visualisation.addMeasurement(&distance);
    visualisation.setTextColor(osg::Color3f(0, 1, 0));
    visualisation.setLineColor(osg::Color3f(1, 0, 0));
    visualisation.setBackColor(osg::Color3f(1, 1, 0));
    visualisation.setLineWidth(3.0f);
    visualisation.setBorderColor(osg::Color3f(0, 0, 1));
    expectMatches(sceneText(visualisation.getVisualisation()),
                  {"12 x \\(0 1 0\\); M3", "M1: SimpleMaterial \\(1 0 0\\).*lines 3 ", "M2: SimpleMaterial \\(1 0 0\\)",
                   "M3:.*\\(0 1 0 1\\)", "M4:.*\\(1 1 0 0.5\\)", "M6: SimpleMaterial \\(1 0 0\\)"});
}

TEST(SimpleMeasurementVisualisation, KeepsWhatCannotBeDrawnFromHarmingTheRest) {
    const float nan = std::numeric_limits<float>::quiet_NaN(), infinity = std::numeric_limits<float>::infinity();
    const Distance good({0, 0, 0}, {1, 2, 3});
    const struct {
        const char* what;
        osg::Pnt3f start, end;
        bool line, heads, label;
    } rows[] = {
        {"not a number", {nan, 0, 0}, {1, 0, 0}, false, false, false},
        {"infinite", {0, 0, 0}, {0, -infinity, 0}, false, false, false},
        {"out of range", {0, 0, 0}, {3e38f, 0, 0}, false, false, false},
        {"of length 0", {1, 1, 1}, {1, 1, 1}, true, false, true},
        {"ordinary", {0, 0, 0}, {0, 0, 1}, true, true, true},
    };
    SimpleMeasurementVisualisation visualisation;
    Distance changing({0, 0, 0}, {1, 0, 0});
    visualisation.addMeasurement(&changing);
    visualisation.addMeasurement(&good);
    const osg::NodePtr subtree = visualisation.getVisualisations().at(&changing);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        changing.set(row.start, row.end);
        visualisation.updateMeasurement(&changing);
        EXPECT_EQ(isShown(subtree, simpleLine), row.line);
        EXPECT_EQ(isShown(subtree, simpleHeads), row.heads);
        EXPECT_EQ(isShown(subtree, simpleLabel), row.label);
        EXPECT_NEAR(volumeOf(visualisation.getVisualisation()).getMax()[2], 3.0f, 0.1f);
    }
}

TEST(SimpleMeasurementVisualisation, RefillsWhatItHas) {
    if (!hasFont()) GTEST_SKIP() << "no font";
    Distance distance({0, 0, 0}, {123, 0, 0});
    SimpleMeasurementVisualisation visualisation;
    visualisation.addMeasurement(&distance);
    const osg::NodePtr subtree = visualisation.getVisualisations().at(&distance);
    const auto state = [&] {
        std::ostringstream text;
        for (const auto& geometry : {geometryOf(subtree->getChild(simpleLine)), textOf(subtree, simpleLabel)}) {
            const osg::GeoPositionsPtr positions = geometry->getPositions();
            text << positions.getCPtr() << " " << positions.getRefCount() << " " << positions->size() << " "
                 << static_cast<void*>(positions->getData()) << " " << geometry->getColors().getCPtr() << "\n";
        }
        return text.str();
    };
    const std::string before = state();
    for (int run = 0; run < 1000; ++run) {
        distance.set({0, 0, 0}, {run % 2 ? 123.0f : 7.0f, 0, 0});
        visualisation.updateMeasurement(&distance);
    }
    EXPECT_EQ(state(), before);
}

TEST(CircleMeasurementVisualisation, ShowsRingMarkersArrowsAndLabel) {
    if (!hasFont()) GTEST_SKIP() << "no font";
    const Circle circle({11, 2, 3}, {1, 12, 3}, {-9, 2, 3});
    const Distance distance({0, 0, 0}, {1, 0, 0});
    CircleMeasurementVisualisation visualisation;
    visualisation.setPrecision(2);
    visualisation.addMeasurement(&distance);
    visualisation.addMeasurement(&circle);
    EXPECT_EQ(pointsOf(textOf(visualisation.getVisualisations().at(&circle), circleLabel)),
              pointsOf({"Circumference: 62.83", "Diameter: 20.00", "Radius: 10.00"}));
    const std::string text = sceneText(visualisation.getVisualisation());
    const auto markerAt = [&](const char* point) {
        return "    Transform3D: (0.25 0 0) (0 0.25 0) (0 0 0.25) " + std::string(point) +
               "\n      Geometry: Triangles 960; textured; M2\n";
    };
    const std::string shapes = replaced(text, "LineLoop 0 [0-9 ]*", "Ring");
    EXPECT_EQ(shapes.substr(0, shapes.find("    Geometry: Lines")),
              "Group\n  Group\n    Transform3D: (10 0 0) (0 10 0) (0 0 10) (1 2 3)\n      Geometry: Ring; P1; M1\n" +
                  markerAt("(11 2 3)") + markerAt("(1 12 3)") + markerAt("(-9 2 3)") + markerAt("(1 2 3)"));
    expectMatches(text, {R"(Geometry: Lines 0 1 20 21, Points 0 1 20 21; P2; M1)",
                         R"(Geometry: Triangles 2 3 4 .* 8 10 11 22 23 24 .* 28 30 31; P2; M2)",
                         R"(Camboard: at \(6 2 3\) scale 0.1 limits 1 1\n      Geometry: .*textured; .*\); M3\n)",
                         R"(P2: \(11 2 3\) \(1 2 3\) \(11 2 3\) \(10 2.2 2.8\))",
                         R"(\(-0.2 2.9 0\) \(1 12 3\) \(1 -8 3\) \(1 12 3\) \(1.2 11 3.2\) .* \(1.2 -7 3.2\) )"});
}

TEST(CircleMeasurementVisualisation, TurnsTheRingAndHidesWhatHasNoPlace) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const struct {
        osg::Vec3f normal;
        osg::Pnt3f center;
        const char* ring;
        bool isRingShown, isAxisShown;
    } rows[] = {
        {{0, 3, 4}, {0, 0, 0}, "(1 0 0) (0 0.8 -0.6) (0 0.6 0.8)", true, true},
        {{0, 0, 0}, {0, 0, 0}, "(1 0 0) (0 1 0) (0 0 1)", true, false},
        {{0, 0, 1}, {nan, 0, 0}, "", false, false},
        {{0, nan, 1}, {0, 0, 0}, "", false, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.ring);
        Circle circle({1, 0, 0}, {0, 1, 0}, {-1, 0, 0});
        circle.setNormal(row.normal);
        circle.setCenter(row.center);
        CircleMeasurementVisualisation visualisation;
        visualisation.addMeasurement(&circle);
        const osg::NodePtr subtree = visualisation.getVisualisations().at(&circle);
        EXPECT_NE(sceneText(subtree).find(row.ring), std::string::npos) << sceneText(subtree);
        EXPECT_EQ(isShown(subtree, ring), row.isRingShown);
        EXPECT_TRUE(isShown(subtree, axis) == row.isAxisShown && isShown(subtree, stroke) == row.isAxisShown);
        volumeOf(subtree);
    }
}

} // namespace tesk::test
