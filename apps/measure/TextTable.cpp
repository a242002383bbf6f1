#include <apps/measure/TextTable.h>

#include <apps/measure/TerminalText.h>

#include <algorithm>
#include <utility>

namespace tesk::measure {

namespace {

/// Columns before the decimal point, or before the exponent of a number without one.
std::size_t integerWidth(const std::string& cell) { return displayWidth(cell.substr(0, cell.find_first_of(".e"))); }

std::size_t widest(const std::vector<std::string>& cells) {
    std::size_t width = 0;
    for (const std::string& cell : cells) width = std::max(width, displayWidth(cell));
    return width;
}

void padLeft(std::string& cell, std::size_t width) { cell.insert(0, width - std::min(width, displayWidth(cell)), ' '); }

void padRight(std::string& cell, std::size_t width) { cell.append(width - std::min(width, displayWidth(cell)), ' '); }

void alignDecimalPoints(std::vector<std::string>& cells) {
    std::size_t width = 0;
    for (const std::string& cell : cells) width = std::max(width, integerWidth(cell));
    for (std::string& cell : cells) cell.insert(0, cell.empty() ? 0 : width - integerWidth(cell), ' ');
}

void trimRight(std::string& line) { line.erase(line.find_last_not_of(' ') + 1); }

} // namespace

TextTable::TextTable(std::vector<Column> tableColumns) : columns(std::move(tableColumns)) {}

void TextTable::addRow(std::vector<std::string> cells) { rows.push_back(std::move(cells)); }

std::vector<std::string> TextTable::alignedColumn(std::size_t column) const {
    std::vector<std::string> cells;
    for (const auto& row : rows) cells.push_back(row[column]);
    const bool isNumber = columns[column].alignment == Alignment::number;
    if (isNumber) alignDecimalPoints(cells);
    const std::size_t contentWidth = widest(cells);
    if (contentWidth == 0) return {};
    const std::size_t width = std::max(contentWidth, displayWidth(columns[column].title));
    for (std::string& cell : cells) padRight(cell, contentWidth);
    cells.insert(cells.begin(), columns[column].title);
    for (std::string& cell : cells) {
        if (isNumber)
            padLeft(cell, width);
        else
            padRight(cell, width);
    }
    return cells;
}

std::string TextTable::toString() const {
    std::vector<std::string> lines(rows.size() + 1);
    for (std::size_t column = 0; column < columns.size(); ++column) {
        const std::vector<std::string> cells = alignedColumn(column);
        for (std::size_t line = 0; line < cells.size(); ++line) {
            lines[line] += (column == 0 ? "" : "  ") + cells[line];
        }
    }
    std::string text;
    for (std::string& line : lines) {
        trimRight(line);
        text += line + "\n";
    }
    return text;
}

} // namespace tesk::measure
