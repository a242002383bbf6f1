#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tesk::measure {

/// Lines of text with aligned columns, two blanks between them.
///
/// Text is aligned to the left; numbers stand with their decimal points below each other. A column without any content
/// is left out, blanks at the end of a line too. Cells are UTF-8 without control characters.
class TextTable {
public:
    enum class Alignment { text, number };
    struct Column {
        std::string title;
        Alignment alignment;
    };

    explicit TextTable(std::vector<Column> columns);

    /// As many cells as there are columns.
    void addRow(std::vector<std::string> cells);
    /// The titles and all rows, each line ended by a line break.
    std::string toString() const;

private:
    std::vector<std::string> alignedColumn(std::size_t column) const;

    std::vector<Column> columns;
    std::vector<std::vector<std::string>> rows;
};

} // namespace tesk::measure
