#include <apps/measure/TextReport.h>

#include <apps/measure/NodeListing.h>
#include <apps/measure/Numbers.h>
#include <apps/measure/TerminalText.h>
#include <apps/measure/TextTable.h>

#include <algorithm>

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

std::string verdict(const Report& report, const Expectation& expectation) {
    return report.isMet(expectation) ? "met" : "NOT MET";
}

/// Empty where the report has no such number.
std::string formatNumberOf(const Report& report, const std::string& key, int digits) {
    const auto found = std::find_if(report.numbers.begin(), report.numbers.end(),
                                    [&](const ReportedNumber& reported) { return reported.key == key; });
    return found != report.numbers.end() ? formatNumber(found->number, digits) : std::string();
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
    if (report.sampleCount) table.addRow({"samples", std::to_string(*report.sampleCount), "", "", "", "", ""});
    for (const auto& [label, key, vector, node] : report.vectors) {
        table.addRow({label, "", formatNumber(vector[0], digits), formatNumber(vector[1], digits),
                      formatNumber(vector[2], digits), printable(node), ""});
    }
    for (const Expectation& expectation : report.expectations) {
        table.addRow({"expected", expectation.getText(), "", "", "", "", verdict(report, expectation)});
    }
    return printable(report.getTitle()) + "\n" + table.toString();
}

std::string textReports(const std::vector<Report>& reports, int digits) {
    TextTable table({{"measurement", Alignment::text},
                     {"value", Alignment::number},
                     {"deviation", Alignment::number},
                     {"minimum", Alignment::number},
                     {"maximum", Alignment::number},
                     {"samples", Alignment::number},
                     {"expected", Alignment::text},
                     {"verdict", Alignment::text},
                     {"problem", Alignment::text}});
    constexpr std::size_t expectedColumn = 6;
    for (const Report& report : reports) {
        std::vector<std::string> cells = {printable(report.getTitle())};
        for (const char* key : {"value", "deviation", "minimum", "maximum"})
            cells.push_back(formatNumberOf(report, key, digits));
        cells.push_back(report.sampleCount ? std::to_string(*report.sampleCount) : std::string());
        cells.insert(cells.end(), {"", "", printable(report.problem)});
        for (const Expectation& expectation : report.expectations) {
            cells[expectedColumn] = expectation.getText();
            cells[expectedColumn + 1] = verdict(report, expectation);
            table.addRow(cells);
            cells.assign(cells.size(), "");
        }
        if (report.expectations.empty()) table.addRow(cells);
    }
    return table.toString();
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
