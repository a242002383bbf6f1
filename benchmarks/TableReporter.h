#pragma once

#include <benchmarks/Growth.h>

#include <benchmark/benchmark.h>

#include <string>
#include <utility>
#include <vector>

namespace tesk::benchmarks {

/// Writes rows as a table: the counters where a row has any, else its time.
///
/// Our figures come first, then the peers' times, then the ratio and what else there is. Numbers have four digits or
/// more, without prefixes such as k. A new header whenever the columns change. At the end, how times grow.
class TableReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override { growth.write(GetOutputStream()); }

private:
    using Columns = std::vector<std::pair<std::string, double>>;

    static Columns arrangeColumns(const Run& run);
    void noteGrowth(const std::string& row, const Columns& columns);
    void writeHeader(const Columns& columns);
    void writeName(const std::string& name);
    void writeValues(const Columns& columns);

    std::size_t nameWidth = 0;
    std::vector<std::string> header;
    Growth growth;
};

} // namespace tesk::benchmarks
