#include <benchmarks/TableReporter.h>

#include <algorithm>
#include <cstdio>
#include <iomanip>
#include <ostream>

namespace tesk::benchmarks {

namespace {

constexpr std::size_t leastColumnWidth = 9;

int columnWidth(const std::string& title) { return static_cast<int>(2 + std::max(leastColumnWidth, title.size())); }

std::string format(double value) {
    char text[64];
    std::snprintf(text, sizeof text, value < 1000.0 ? "%.4g" : "%.0f", value);
    return text;
}

bool endsWith(const std::string& text, const std::string& ending) {
    return text.size() >= ending.size() && text.substr(text.size() - ending.size()) == ending;
}

/// The group of columns that a counter stands in.
int rankOf(const std::string& counter) {
    if (endsWith(counter, "_ms")) return counter == "ours_ms" ? 0 : 1;
    if (counter == "ratio") return 2;
    return counter.substr(0, 4) == "ours" ? 3 : 4;
}

} // namespace

bool TableReporter::ReportContext(const Context& context) {
    PrintBasicContext(&GetErrorStream(), context);
    // Names come with a suffix that the table leaves out.
    nameWidth = context.name_field_width;
    return true;
}

void TableReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.error_occurred || !run.report_label.empty()) {
            writeName(run.run_name.function_name);
            GetOutputStream() << "  " << (run.error_occurred ? "ERROR: " + run.error_message : run.report_label);
        } else {
            const Columns columns = arrangeColumns(run);
            writeHeader(columns);
            writeName(run.run_name.function_name);
            writeValues(columns);
            noteGrowth(run.run_name.function_name, columns);
        }
        GetOutputStream() << std::endl;
    }
}

TableReporter::Columns TableReporter::arrangeColumns(const Run& run) {
    if (run.counters.empty())
        return {{std::string("time_") + benchmark::GetTimeUnitString(run.time_unit), run.GetAdjustedRealTime()}};
    Columns columns;
    for (const auto& [name, counter] : run.counters) columns.emplace_back(name, counter.value);
    std::stable_sort(columns.begin(), columns.end(),
                     [](const auto& a, const auto& b) { return rankOf(a.first) < rankOf(b.first); });
    return columns;
}

void TableReporter::noteGrowth(const std::string& row, const Columns& columns) {
    double ours = 0.0, fastestPeer = 0.0;
    for (const auto& [title, value] : columns) {
        if (!endsWith(title, "_ms")) continue;
        if (title == "ours_ms") {
            ours = value;
        } else if (fastestPeer == 0.0 || value < fastestPeer) {
            fastestPeer = value;
        }
    }
    if (ours > 0.0) growth.add(row, ours, fastestPeer);
}

void TableReporter::writeHeader(const Columns& columns) {
    std::vector<std::string> titles;
    for (const auto& column : columns) titles.push_back(column.first);
    if (titles == header) return;
    header = titles;
    GetOutputStream() << '\n';
    writeName("");
    for (const std::string& title : titles) GetOutputStream() << std::setw(columnWidth(title)) << title;
    GetOutputStream() << '\n';
}

void TableReporter::writeName(const std::string& name) {
    GetOutputStream() << std::left << std::setw(static_cast<int>(nameWidth)) << name << std::right;
}

void TableReporter::writeValues(const Columns& columns) {
    for (const auto& [title, value] : columns) GetOutputStream() << std::setw(columnWidth(title)) << format(value);
}

} // namespace tesk::benchmarks
