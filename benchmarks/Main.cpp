#include <benchmarks/Comparison.h>
#include <benchmarks/Peers.h>
#include <benchmarks/TableReporter.h>
#include <benchmarks/Works.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <charconv>
#include <iostream>
#include <string_view>
#include <vector>

namespace {

constexpr std::string_view closePairOption = "--close_pair_limit=";
constexpr std::string_view formatOption = "--benchmark_format=";

/// Takes the option, if it is there, out of the arguments. False when its value is no number.
bool takeLimit(std::vector<char*>& arguments, std::string_view option, std::size_t& limit) {
    for (auto argument = arguments.begin() + 1; argument != arguments.end(); ++argument) {
        std::string_view text = *argument;
        if (text.substr(0, option.size()) != option) continue;
        text.remove_prefix(option.size());
        arguments.erase(argument);
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), limit);
        return error == std::errc() && end == text.data() + text.size();
    }
    return true;
}

} // namespace

int main(int argc, char** argv) {
    std::vector<char*> arguments(argv, argv + argc);
    std::size_t closePairLimit = 100'000;
    if (!takeLimit(arguments, closePairOption, closePairLimit)) {
        std::cerr << closePairOption << "N: N is a number of triangles\n";
        return 2;
    }
    const bool namesFormat = std::any_of(arguments.begin(), arguments.end(), [](const char* argument) {
        return std::string_view(argument).substr(0, formatOption.size()) == formatOption;
    });
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;

    using namespace tesk::benchmarks;
    benchmark::AddCustomContext("peers", listPeers());
    addDistanceQueries();
    addTreeBuilding();
    addTreeSearch(closePairLimit);
    addObjectObject(closePairLimit);
    addPointObject();
    addSlicing();
    addGap(closePairLimit);
    addLineObject();
    addFiles();
    addVisualisation();
    TableReporter table;
    benchmark::RunSpecifiedBenchmarks(namesFormat ? benchmark::CreateDefaultDisplayReporter() : &table);
    return hasFailure() ? 1 : 0;
}
