#include <apps/measure/TextReport.h>

#include <apps/measure/NodeListing.h>
#include <apps/measure/Numbers.h>
#include <apps/measure/TerminalText.h>
#include <apps/measure/TextTable.h>

namespace tesk::measure {

namespace {

using Alignment = TextTable::Alignment;

std::vector<std::string> boundsCells(const osg::NodePtr& node, int digits) {
    const auto bounds = worldBounds(node);
    if (!bounds) return std::vector<std::string>(6);
    std::vector<std::string> cells;
    for (const osg::Pnt3f& corner : {bounds->lower, bounds->upper}) {
        for (osg::UInt32 axis = 0; axis < 3; ++axis) cells.push_back(formatNumber(corner[axis], digits));
    }
    return cells;
}

} // namespace

std::string textReport(const Report& report, int digits) {
    TextTable table({{"", Alignment::text},
                     {"value", Alignment::number},
                     {"x", Alignment::number},
                     {"y", Alignment::number},
                     {"z", Alignment::number},
                     {"node", Alignment::text},
                     {"verdict", Alignment::text}});
    for (const auto& [label, key, number] : report.numbers) {
        table.addRow({label, formatNumber(number, digits), "", "", "", "", ""});
    }
    for (const auto& [label, key, vector, node] : report.vectors) {
        table.addRow({label, "", formatNumber(vector[0], digits), formatNumber(vector[1], digits),
                      formatNumber(vector[2], digits), printable(node), ""});
    }
    for (const Expectation& expectation : report.expectations) {
        table.addRow(
            {"expected", expectation.getText(), "", "", "", "", report.isMet(expectation) ? "met" : "NOT MET"});
    }
    const std::string title = report.name.empty() ? report.kind : report.kind + ": " + printable(report.name);
    return title + "\n" + table.toString();
}

std::string textList(const SceneCatalogue& catalogue, int digits) {
    TextTable table({{"node", Alignment::text},
                     {"kind", Alignment::text},
                     {"triangles", Alignment::number},
                     {"lines", Alignment::number},
                     {"min x", Alignment::number},
                     {"min y", Alignment::number},
                     {"min z", Alignment::number},
                     {"max x", Alignment::number},
                     {"max y", Alignment::number},
                     {"max z", Alignment::number},
                     {"file", Alignment::text}});
    for (const CatalogueNode& node : catalogue.getNodes()) {
        const std::string file = node.isFileRoot() ? catalogue.getFiles()[node.file].path : std::string();
        std::vector<std::string> cells = {std::string(2 * node.depth, ' ') + printable(node.name), nodeKind(node),
                                          std::to_string(node.content.triangles), std::to_string(node.content.lines)};
        for (std::string& cell : boundsCells(node.node, digits)) cells.push_back(std::move(cell));
        cells.push_back(printable(file));
        table.addRow(std::move(cells));
    }
    return table.toString();
}

} // namespace tesk::measure
