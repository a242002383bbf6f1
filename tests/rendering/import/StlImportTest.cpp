#include <rendering/import/SceneImporter.h>

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "MeshFiles.h"

namespace tesk::rendering {

namespace {

using test::packed;

std::string binary(std::uint32_t statedCount, const std::string& facets, std::string header = "made by a program") {
    header.resize(80, ' ');
    return header + packed(statedCount) + facets;
}

/// A right angle at (x, 0, 0).
std::string facet(float x) {
    return packed(0.0f, 0.0f, 0.0f, x, 0.0f, 0.0f, x + 1, 0.0f, 0.0f, x, 1.0f, 0.0f, std::uint16_t(0));
}

std::string textFacet(const std::string& coordinate) {
    return "facet normal 0 0 1\nouter loop\nvertex 0 0 " + coordinate + "\nvertex 1 0 0\nvertex 0 1 0\nendloop\n" +
           "endfacet\n";
}

} // namespace

TEST(StlImport, TakesWhatCanBeUnderstood) {
    const float notANumber = std::numeric_limits<float>::quiet_NaN();
    const struct {
        const char* oddity;
        std::string bytes;
        /// The scene, or the error.
        std::string outcome;
        std::string note;
    } rows[] = {
        {"binary", binary(2, facet(0) + facet(1)), "part triangles 0 1 2 1 3 4", ""},
        {"corner shared to the bit only", binary(2, facet(0) + facet(-0.0f)), "part triangles 0 1 2 3 1 4", ""},
        {"degenerate facet stays", binary(1, packed(std::array<float, 12>{}, std::uint16_t(0))), "part triangles 0 0 0",
         ""},
        {"bytes after the end, header of the text form", binary(1, facet(0) + "tail", "solid"), "part triangles 0 1 2",
         "4 bytes after the last facet ignored"},
        {"fewer facets than stated", binary(7, facet(0) + facet(9).substr(0, 30)), "part triangles 0 1 2",
         "states 7 facets, holds 1"},
        {"number of facets never filled in", binary(0, facet(0)), "part triangles 0 1 2", "states 0 facets, holds 1"},
        {"facet that is not finite", binary(2, facet(notANumber) + facet(0)), "part triangles 0 1 2",
         "1 facet with coordinates that are not finite numbers dropped"},
        {"no facets", binary(0, ""), "no triangles or lines", ""},
        {"too short", std::string(60, '\1'), "not a readable mesh: neither a text nor a binary STL file", ""},
        {"names of several words",
         "solid left  arm \r\n" + textFacet("1") + "endsolid left  arm\nsolid\n" + textFacet("2"),
         "part [left  arm triangles 0 1 2, part triangles 0 1 2]", ""},
        {"capitals and byte order mark",
         "\xef\xbb\xbfSOLID A\nFACET\nVERTEX 0 0 0 VERTEX +1 0 0 Vertex 0 1E0 0 ENDFACET", "part [A triangles 0 1 2]",
         ""},
        {"one line", "solid A facet normal 0 0 1 vertex 0 0 0 vertex 1 0 0 vertex 0 1 0 endfacet endsolid A",
         "part [A triangles 0 1 2]", ""},
        {"control character in a text", "solid \1\n" + textFacet("1"), "part triangles 0 1 2", ""},
        {"numbers beyond a float", "solid A\n" + textFacet("1e-60") + textFacet("1e60") + textFacet("nan"),
         "part [A triangles 0 1 2]", "2 facets with coordinates that are not finite numbers dropped"},
        {"broken facets",
         "solid A\n" + textFacet("1,5") + textFacet("") + textFacet("1 vertex 2 2 2") + textFacet("0") +
             "facet vertex 0 0 0 vertex 1 0 0 vertex 1 1",
         "part [A triangles 0 1 2]", "4 incomplete or unreadable facets dropped"},
        {"empty solid", "solid A\nendsolid A\nsolid B\n" + textFacet("1"), "part [B triangles 0 1 2]",
         "1 solid without facets left out"},
    };
    osg::osgInit(0, nullptr);
    const test::TemporaryFolder folder;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.oddity);
        const std::string file = folder.write("part.STL", row.bytes);
        const ImportResult result = importScene(file);
        EXPECT_EQ(result.root ? test::dump(result.root) : result.error,
                  result.root ? row.outcome : file + ": " + row.outcome);
        EXPECT_EQ(result.notes.empty() ? "" : result.notes.front(), row.note.empty() ? "" : file + ": " + row.note);
    }
}

} // namespace tesk::rendering
