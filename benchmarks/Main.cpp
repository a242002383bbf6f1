#include <benchmarks/Comparison.h>
#include <benchmarks/Peers.h>
#include <benchmarks/TableReporter.h>
#include <benchmarks/Works.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <string_view>

namespace {

constexpr std::string_view formatOption = "--benchmark_format=";

} // namespace

int main(int argc, char** argv) {
    const bool namesFormat = std::any_of(argv, argv + argc, [](const char* argument) {
        return std::string_view(argument).substr(0, formatOption.size()) == formatOption;
    });
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;

    using namespace tesk::benchmarks;
    benchmark::AddCustomContext("peers", listPeers());
    addDistanceQueries();
    addTreeBuilding();
    addTreeSearch();
    addObjectObject();
    addPointObject();
    addSlicing();
    addGap();
    addLineObject();
    addFiles();
    addVisualisation();
    TableReporter table;
    benchmark::RunSpecifiedBenchmarks(namesFormat ? benchmark::CreateDefaultDisplayReporter() : &table);
    return hasFailure() ? 1 : 0;
}
